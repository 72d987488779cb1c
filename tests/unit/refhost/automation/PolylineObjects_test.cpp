#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/ITransientObjectIdentity.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Circle.h"
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

}  // namespace
