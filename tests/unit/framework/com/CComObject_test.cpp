#include "framework/com/CComObject.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/framework/com/TestRow.h"

namespace {

using kvtest::MakeRow;
using kvtest::TestModule;

struct Life {
    int constructed = 0;
    int finished = 0;
    int destroyed = 0;
    HRESULT result = S_OK;
    bool throws = false;
};
Life s_life;

class Watched : public fw::ComObjectRoot, public IServiceProvider {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{fw::Implements<Watched, IServiceProvider>()};
        return s_interfaces;
    }
    STDMETHODIMP QueryService(REFGUID, REFIID, void**) override { return E_NOTIMPL; }

protected:
    HRESULT FinalConstruct() {
        ++s_life.constructed;
        // An object may hand itself out before it is complete; that must not end it.
        const fw::ComPtr<IUnknown> self(GetUnknown());
        if (s_life.throws) {
            throw std::runtime_error("no row");
        }
        return s_life.result;
    }
    void FinalRelease() {
        ++s_life.finished;
        const fw::ComPtr<IUnknown> self(GetUnknown());
        EXPECT_EQ(TestModule().GetLockCount(), GetModule() ? 1 : 0);
    }
    ~Watched() { ++s_life.destroyed; }
};

class CComObjectTest : public testing::Test {
protected:
    void SetUp() override { s_life = Life(); }
};

TEST_F(CComObjectTest, LastRelease_FinishesAndDestroysOnce) {
    fw::ComPtr<IUnknown> object;
    ASSERT_EQ(CComObject<Watched>::Create(&TestModule(), IID_IUnknown, object.PutVoid()), S_OK);
    EXPECT_EQ(TestModule().GetLockCount(), 1);
    EXPECT_EQ(object->AddRef(), 2u);
    EXPECT_EQ(object->Release(), 1u);
    EXPECT_EQ(s_life.finished, 0);
    object.Reset();
    EXPECT_EQ(s_life.finished, 1);
    EXPECT_EQ(s_life.destroyed, 1);
    EXPECT_EQ(TestModule().GetLockCount(), 0);
}

TEST_F(CComObjectTest, ConstructionFails_NothingIsLeft) {
    s_life.result = E_ACCESSDENIED;
    fw::ComPtr<IUnknown> object;
    EXPECT_EQ(CComObject<Watched>::Create(&TestModule(), IID_IUnknown, object.PutVoid()), E_ACCESSDENIED);
    EXPECT_FALSE(object);
    EXPECT_EQ(s_life.destroyed, 1);
    EXPECT_EQ(TestModule().GetLockCount(), 0);
}

TEST_F(CComObjectTest, ConstructionThrows_NothingCrossesTheBorder) {
    s_life.throws = true;
    fw::ComPtr<IUnknown> object;
    EXPECT_EQ(CComObject<Watched>::Create(&TestModule(), IID_IUnknown, object.PutVoid()), E_FAIL);
    EXPECT_EQ(s_life.destroyed, 1);
    EXPECT_EQ(TestModule().GetLockCount(), 0);
}

TEST_F(CComObjectTest, UnknownInterfaceAtCreation_DestroysTheObject) {
    void* result = this;
    EXPECT_EQ(CComObject<Watched>::Create(&TestModule(), IID_IDataObject, &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(s_life.destroyed, 1);
    EXPECT_EQ(CComObject<Watched>::Create(&TestModule(), IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(CComObjectTest, NoModule_LocksNothing) {
    fw::ComPtr<CComObject<Watched>> object;
    ASSERT_EQ(CComObject<Watched>::CreateInstance(nullptr, object.Put()), S_OK);
    EXPECT_EQ(object->GetModule(), nullptr);
    EXPECT_EQ(TestModule().GetLockCount(), 0);
}

const IID s_controlInterfaces[] = {
    IID_IUnknown,
    IID_IDispatch,
    __uuidof(ITestRow),
    IID_IOleControl,
    IID_IOleObject,
    IID_IOleInPlaceActiveObject,
    IID_IViewObjectEx,
    IID_IViewObject2,
    IID_IViewObject,
    IID_IOleInPlaceObjectWindowless,
    IID_IOleInPlaceObject,
    IID_IOleWindow,
    IID_IConnectionPointContainer,
    IID_IQuickActivate,
};

TEST_F(CComObjectTest, QueryInterface_IsReflexiveSymmetricAndTransitive) {
    const auto row = MakeRow();
    const fw::ComPtr<IUnknown> identity = fw::QueryFrom<IUnknown>(row->GetUnknown());
    for (const IID& from : s_controlInterfaces) {
        fw::ComPtr<IUnknown> first;
        ASSERT_EQ(identity->QueryInterface(from, first.PutVoid()), S_OK);
        fw::ComPtr<IUnknown> same;
        ASSERT_EQ(first->QueryInterface(from, same.PutVoid()), S_OK);
        EXPECT_EQ(first, same);
        for (const IID& to : s_controlInterfaces) {
            fw::ComPtr<IUnknown> second;
            ASSERT_EQ(first->QueryInterface(to, second.PutVoid()), S_OK);
            fw::ComPtr<IUnknown> back;
            ASSERT_EQ(second->QueryInterface(from, back.PutVoid()), S_OK);
            EXPECT_EQ(first, back);
            fw::ComPtr<IUnknown> unknown;
            ASSERT_EQ(second->QueryInterface(IID_IUnknown, unknown.PutVoid()), S_OK);
            EXPECT_EQ(unknown, identity);
        }
    }
}

TEST_F(CComObjectTest, QueryInterface_Missing_ClearsTheResult) {
    const auto row = MakeRow();
    void* result = this;
    EXPECT_EQ(row->QueryInterface(IID_IDataObject, &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(row->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

}  // namespace
