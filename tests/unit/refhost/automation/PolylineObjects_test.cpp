#include "framework/com/ErrorInfo.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/IPropertyElementAccess.h"
#include "host_sdk/IPropertyElementAccess2.h"
#include "host_sdk/ITransientObjectIdentity.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::Polyline;
using kvhost::PolylineVertex;

class PolylineObjectsTest : public kvtest::AutomationFixture {
protected:
    KvDbObjectId AddPolyline(std::vector<PolylineVertex> vertices) {
        return Add<Polyline>(
            [&](Polyline& polyline) { EXPECT_EQ(polyline.SetVertices(std::move(vertices)), Tolm::eOk); });
    }
    KvDbObjectId AddSquare() { return AddPolyline({{0, 0, 0.5}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}); }

    static const std::vector<PolylineVertex>& VerticesOf(KvDbObjectId id) {
        return kvhost::Database::PeekAs<Polyline>(id)->Vertices();
    }
    static fw::ComPtr<IDispatch> VertexOf(KvDbObjectId id, std::size_t index) {
        fw::ComPtr<IDispatch> vertex;
        EXPECT_EQ(kvhost::GetPolylineVertexObject(id, index, vertex.Put()), S_OK);
        return vertex;
    }
};

TEST_F(PolylineObjectsTest, Vertex_ReadsAndWritesItsNumbers) {
    const KvDbObjectId id = AddSquare();
    const auto vertex = VertexOf(id, 2);
    EXPECT_EQ(Get(vertex.Get(), L"X").DoubleOr(0), 1);
    EXPECT_EQ(Put(vertex.Get(), L"Y", fw::Variant::FromDouble(5)), S_OK);
    EXPECT_EQ(Put(vertex.Get(), L"Bulge", fw::Variant::FromDouble(0.25)), S_OK);
    EXPECT_EQ(VerticesOf(id)[2], (PolylineVertex{1, 5, 0.25}));
    EXPECT_EQ(m_database.Undo().Undo(2), Tolm::eOk);
    EXPECT_EQ(Get(vertex.Get(), L"Y").DoubleOr(0), 1);
}

TEST_F(PolylineObjectsTest, Vertex_HasPathAndClassButNoObjectId) {
    const KvDbObjectId id = AddSquare();
    const auto vertex = VertexOf(id, 3);
    EXPECT_FALSE(vertex.As<IDatabaseObjectIdentity>());
    const auto identity = vertex.As<ITransientObjectIdentity>();
    KvDbFullSubentPath path;
    EXPECT_EQ(identity->GetFullSubentPath(&path), S_OK);
    EXPECT_EQ(path, KvDbFullSubentPath(id, kvhost::SubentVertex, 3));
    CLSID classId{};
    EXPECT_EQ(identity->GetClassId(&classId), S_OK);
    EXPECT_EQ(classId, kvhost::PropertyTable::Of(L"PolylineVertex")->ClassId());
}

TEST_F(PolylineObjectsTest, Vertex_ThatIsNotThere) {
    const KvDbObjectId id = AddSquare();
    fw::ComPtr<IDispatch> none;
    EXPECT_EQ(kvhost::GetPolylineVertexObject(id, 4, none.Put()), E_INVALIDARG);
    EXPECT_EQ(kvhost::GetPolylineVertexObject(Add<kvhost::Circle>(), 0, none.Put()), E_INVALIDARG);

    const auto vertex = VertexOf(id, 3);
    Write<Polyline>(id, [](Polyline& polyline) { return polyline.SetVertices({{0, 0, 0}, {1, 1, 0}}); });
    fw::Variant value;
    EXPECT_EQ(Get(vertex.Get(), 291, value), DISP_E_EXCEPTION);
    EXPECT_EQ(Put(vertex.Get(), 291, fw::Variant::FromDouble(1)), DISP_E_EXCEPTION);
}

TEST_F(PolylineObjectsTest, Direction_TurnsThePathRound) {
    const KvDbObjectId id = AddSquare();
    const auto polyline = ObjectOf(id);
    EXPECT_EQ(Get(polyline.Get(), L"Direction").LongOr(-1), 1);
    EXPECT_EQ(Put(polyline.Get(), L"Direction", fw::Variant::FromLong(0)), S_OK);
    EXPECT_EQ(Get(polyline.Get(), L"Direction").LongOr(-1), 0);
    // The bulge stays with the segment between the first two corners and bends the other way now.
    const std::vector<PolylineVertex> expected{{0, 1, 0}, {1, 1, 0}, {1, 0, -0.5}, {0, 0, 0}};
    ASSERT_EQ(VerticesOf(id).size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(VerticesOf(id)[i].x, expected[i].x);
        EXPECT_EQ(VerticesOf(id)[i].y, expected[i].y);
        EXPECT_EQ(VerticesOf(id)[i].bulge, expected[i].bulge);
    }
    EXPECT_EQ(Put(polyline.Get(), L"Direction", fw::Variant::FromLong(2)), DISP_E_EXCEPTION);
}

TEST_F(PolylineObjectsTest, Coordinates_KeepBulges) {
    const KvDbObjectId id = AddSquare();
    const auto polyline = ObjectOf(id);
    const std::vector<double> numbers{0, 0, 2, 0, 2, 2};
    EXPECT_EQ(Put(polyline.Get(), L"Coordinates", kvhost::NumbersToVariant(numbers)), S_OK);
    ASSERT_EQ(VerticesOf(id).size(), 3U);
    EXPECT_EQ(VerticesOf(id)[0].bulge, 0.5);
    std::vector<double> read;
    EXPECT_EQ(kvhost::NumbersFromVariant(Get(polyline.Get(), L"Coordinates"), read), Tolm::eOk);
    EXPECT_EQ(read, numbers);
    EXPECT_EQ(Put(polyline.Get(), L"Coordinates", kvhost::NumbersToVariant(std::vector<double>{1, 2, 3})),
              DISP_E_EXCEPTION);
}

constexpr long c_coordinates = 261;
constexpr long c_segments = 268;

TEST_F(PolylineObjectsTest, Elements_AreReadByTheirKeys) {
    const auto polyline = ObjectOf(AddPolyline({{1, 2, 0}, {3, 4, -0.25}, {5, 6, 0}}));
    const auto access = polyline.As<IPropertyElementAccess2>();
    fw::Variant value;
    EXPECT_EQ(access->GetElementValue(c_coordinates, polyline.Get(), 3, value.Put()), S_OK);
    EXPECT_EQ(value.DoubleOr(0), 4);
    EXPECT_EQ(access->GetElementValue(c_segments, polyline.Get(), 1, value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(-1), 2);
    unsigned size = 0;
    long count = 0;
    EXPECT_EQ(access->GetGroupSize(c_coordinates, polyline.Get(), &size), S_OK);
    EXPECT_EQ(size, 2U);
    EXPECT_EQ(access->GetGroupCount(c_coordinates, polyline.Get(), &count), S_OK);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(access->GetGroupCount(c_segments, polyline.Get(), &count), S_OK);
    EXPECT_EQ(count, 2);
}

TEST_F(PolylineObjectsTest, Elements_AreWrittenInOneStepOfUndo) {
    const KvDbObjectId id = AddSquare();
    const auto access = ObjectOf(id).As<IPropertyElementAccess>();
    EXPECT_EQ(access->SetElementValue(c_coordinates, 3, fw::Variant::FromLong(-7).Get()), S_OK);
    EXPECT_EQ(VerticesOf(id)[1].y, -7);
    EXPECT_EQ(access->SetElementValue(c_segments, 0, fw::Variant::FromLong(2).Get()), S_OK);
    EXPECT_EQ(VerticesOf(id)[0].bulge, -0.5);
    EXPECT_EQ(access->SetElementValue(c_segments, 1, fw::Variant::FromLong(1).Get()), S_OK);
    EXPECT_NEAR(VerticesOf(id)[1].bulge, 0.41421356, 1e-8);
    EXPECT_EQ(access->SetElementValue(c_segments, 0, fw::Variant::FromLong(0).Get()), S_OK);
    EXPECT_EQ(VerticesOf(id)[0].bulge, 0);
    EXPECT_EQ(m_database.Undo().Undo(4), Tolm::eOk);
    EXPECT_EQ(VerticesOf(id), (std::vector<PolylineVertex>{{0, 0, 0.5}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
}

TEST_F(PolylineObjectsTest, Elements_RefuseWrongKeysValuesAndProperties) {
    const KvDbObjectId id = AddSquare();
    const auto access = ObjectOf(id).As<IPropertyElementAccess>();
    const auto refused = static_cast<HRESULT>(0x80200000UL | Tolm::eInvalidInput);
    fw::Variant value;
    EXPECT_EQ(access->GetElementValue(c_segments, 3, value.Put()), refused);
    EXPECT_EQ(access->GetElementValue(c_coordinates, 8, value.Put()), refused);
    EXPECT_EQ(access->SetElementValue(c_segments, 0, fw::Variant::FromLong(3).Get()), refused);
    EXPECT_EQ(access->SetElementValue(c_segments, 0, fw::Variant::FromString(L"arc").Get()),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(access->GetElementValue(263, 0, value.Put()), E_INVALIDARG);
    EXPECT_EQ(access->GetElementValue(c_segments, 0, nullptr), E_POINTER);
    EXPECT_EQ(VerticesOf(id)[0].bulge, 0.5);
    EXPECT_FALSE(ObjectOf(Add<kvhost::Circle>()).As<IPropertyElementAccess>());
    fw::ClearErrorInfo();
}

TEST_F(PolylineObjectsTest, Segments_AsAWholeAndAheadOfAnElement) {
    const KvDbObjectId id = AddSquare();
    const auto polyline = ObjectOf(id);
    std::vector<double> read;
    EXPECT_EQ(kvhost::NumbersFromVariant(Get(polyline.Get(), L"Segments"), read), Tolm::eOk);
    EXPECT_EQ(read, (std::vector<double>{1, 0, 0}));
    EXPECT_EQ(Put(polyline.Get(), L"Segments", fw::Variant::FromLong(2)), S_OK);
    EXPECT_EQ(VerticesOf(id)[0].bulge, 0.5);
    EXPECT_EQ(Put(polyline.Get(), L"Segments", kvhost::NumbersToVariant(std::vector<double>{2, 0, 0})), S_OK);
    EXPECT_EQ(VerticesOf(id)[0].bulge, -0.5);
    EXPECT_EQ(Put(polyline.Get(), L"Segments", kvhost::NumbersToVariant(std::vector<double>{2})),
              DISP_E_EXCEPTION);
    EXPECT_EQ(Put(polyline.Get(), L"Segments", kvhost::NumbersToVariant(std::vector<double>{2, 0, 9})),
              DISP_E_EXCEPTION);
}

TEST_F(PolylineObjectsTest, VertexSegment_IsTheShapeBehindTheVertex) {
    const KvDbObjectId id = AddSquare();
    const auto vertex = VertexOf(id, 0);
    EXPECT_EQ(Get(vertex.Get(), L"Segment").LongOr(-1), 1);
    EXPECT_EQ(Put(vertex.Get(), L"Segment", fw::Variant::FromLong(0)), S_OK);
    EXPECT_EQ(VerticesOf(id)[0].bulge, 0);
    EXPECT_EQ(Put(vertex.Get(), L"Segment", fw::Variant::FromLong(7)), DISP_E_EXCEPTION);
    EXPECT_FALSE(vertex.As<IPerPropertyBrowsing>());
}

TEST_F(PolylineObjectsTest, Browsing_ListsTheDirections) {
    const auto browsing = ObjectOf(AddSquare()).As<IPerPropertyBrowsing>();
    CALPOLESTR strings{};
    CADWORD cookies{};
    ASSERT_EQ(browsing->GetPredefinedStrings(264, &strings, &cookies), S_OK);
    ASSERT_EQ(strings.cElems, 2U);
    EXPECT_STREQ(strings.pElems[0], L"Clockwise");
    fw::Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(264, cookies.pElems[1], value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(-1), 1);
    for (ULONG i = 0; i < strings.cElems; ++i) {
        ::SysFreeString(strings.pElems[i]);
    }
    ::CoTaskMemFree(strings.pElems);
    ::CoTaskMemFree(cookies.pElems);

    fw::Bstr text;
    EXPECT_EQ(browsing->GetDisplayString(264, text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"Counterclockwise");
    EXPECT_EQ(browsing->GetDisplayString(263, text.Put()), E_NOTIMPL);
    EXPECT_EQ(browsing->GetPredefinedStrings(263, &strings, &cookies), E_NOTIMPL);
    EXPECT_EQ(browsing->GetPredefinedValue(264, 2, value.Put()), E_INVALIDARG);
}

TEST_F(PolylineObjectsTest, Browsing_ValuesThatTheTypeLibraryTellsAlone) {
    constexpr DISPID c_style = 272;
    const auto browsing = ObjectOf(Add<kvhost::Point>()).As<IPerPropertyBrowsing>();
    fw::Bstr text;
    EXPECT_EQ(browsing->GetDisplayString(c_style, text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"Dot");
    fw::Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(c_style, 0, value.Put()), E_NOTIMPL);
}

TEST_F(PolylineObjectsTest, Browsing_OfATruthWithTextsOfItsOwn) {
    constexpr DISPID c_on = 285;
    const auto browsing = ObjectOf(m_database.LayerNamed(L"0")).As<IPerPropertyBrowsing>();
    fw::Bstr text;
    EXPECT_EQ(browsing->GetDisplayString(c_on, text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"On");
    fw::Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(c_on, 1, value.Put()), S_OK);
    ASSERT_TRUE(value.Is(VT_BOOL));
    EXPECT_EQ(value.Get().boolVal, VARIANT_FALSE);
}

}  // namespace
