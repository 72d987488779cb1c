#include "framework/com/CComModule.h"

#include <gtest/gtest.h>

#include "tests/unit/framework/com/TestRow.h"

namespace {

constexpr CLSID s_rowClass{0x7B1F0C5E, 0x3D0B, 0x4E5A, {0x9B, 0x0B, 0x0A, 0x54, 0xD1, 0xA3, 0xC6, 0x10}};
constexpr CLSID s_plannedClass{0x7B1F0C5E, 0x3D0B, 0x4E5A, {0x9B, 0x0B, 0x0A, 0x54, 0xD1, 0xA3, 0xC6, 0x11}};
constexpr CLSID s_foreignClass{0x7B1F0C5E, 0x3D0B, 0x4E5A, {0x9B, 0x0B, 0x0A, 0x54, 0xD1, 0xA3, 0xC6, 0x12}};

int s_terms = 0;

const fw::ObjectMapEntry s_objects[] = {
    {&s_rowClass, &CComObject<kvtest::TestRow>::Create, L"KvFrameTest.A.1", nullptr, L"A Class", 0,
     [] { ++s_terms; }},
    {&s_plannedClass, nullptr, L"KvFrameTest.B.1", nullptr, L"B Class", 0, nullptr},
};

class CountingModule : public CComModule {
public:
    LONG Lock() noexcept override {
        ++locks;
        return CComModule::Lock();
    }
    int locks = 0;
};

class CComModuleTest : public testing::Test {
protected:
    void SetUp() override {
        s_terms = 0;
        ASSERT_EQ(m_module.Init(s_objects), S_OK);
    }
    void TearDown() override {
        m_module.Term();
        EXPECT_EQ(m_module.GetLockCount(), 0);
    }

    fw::ComPtr<IClassFactory> Factory() {
        fw::ComPtr<IClassFactory> factory;
        EXPECT_EQ(m_module.GetClassObject(s_rowClass, IID_IClassFactory, factory.PutVoid()), S_OK);
        return factory;
    }

    CountingModule m_module;
};

TEST_F(CComModuleTest, GetClassObject_UnknownOrPlannedClass_IsNotAvailable) {
    void* result = this;
    EXPECT_EQ(m_module.GetClassObject(s_foreignClass, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(m_module.GetClassObject(s_plannedClass, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(m_module.GetClassObject(s_rowClass, IID_IDispatch, &result), E_NOINTERFACE);
    EXPECT_EQ(m_module.GetClassObject(s_rowClass, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_NE(m_module.FindObject(s_plannedClass), nullptr);
    EXPECT_EQ(m_module.FindObject(s_foreignClass), nullptr);
}

TEST_F(CComModuleTest, GetClassObject_Twice_GivesTheSameFactory) {
    const auto first = Factory();
    const auto second = Factory();
    EXPECT_EQ(first, second);
}

TEST_F(CComModuleTest, FactoryReferences_KeepTheModule) {
    auto factory = Factory();
    EXPECT_EQ(m_module.GetLockCount(), 1);
    factory.Reset();
    EXPECT_EQ(m_module.GetLockCount(), 0);
    // Kept by the module all the same, without a lock.
    EXPECT_TRUE(Factory());
}

TEST_F(CComModuleTest, CreateInstance_LocksThroughTheOverride) {
    const auto factory = Factory();
    m_module.locks = 0;
    fw::ComPtr<IOleObject> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IOleObject, object.PutVoid()), S_OK);
    EXPECT_EQ(m_module.locks, 1);
    EXPECT_EQ(m_module.GetLockCount(), 2);
    object.Reset();
    EXPECT_EQ(m_module.GetLockCount(), 1);
}

TEST_F(CComModuleTest, CreateInstance_Aggregated_IsRefused) {
    const auto factory = Factory();
    void* result = this;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &result), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(CComModuleTest, LockServer_CountsThroughTheOverride) {
    const auto factory = Factory();
    m_module.locks = 0;
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(m_module.locks, 1);
    EXPECT_EQ(m_module.GetLockCount(), 2);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(m_module.GetLockCount(), 1);
}

TEST_F(CComModuleTest, Term_ReleasesFactoriesAndCallsEachClassOnce) {
    auto factory = Factory();
    m_module.Term();
    EXPECT_EQ(s_terms, 1);
    // The client's reference is the last one now.
    EXPECT_EQ(factory->AddRef(), 2u);
    EXPECT_EQ(factory->Release(), 1u);
    factory.Reset();
    m_module.Term();
    EXPECT_EQ(s_terms, 1);
    void* result = nullptr;
    EXPECT_EQ(m_module.GetClassObject(s_rowClass, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(CComModuleTest, GetTypeInfo_ComesFromTheModulesOwnResource) {
    fw::ComPtr<ITypeInfo> first;
    ASSERT_EQ(m_module.GetTypeInfo(__uuidof(ITestRow), first.Put()), S_OK);
    fw::ComPtr<ITypeInfo> second;
    ASSERT_EQ(m_module.GetTypeInfo(__uuidof(ITestRow), second.Put()), S_OK);
    EXPECT_EQ(first, second);
    fw::ComPtr<ITypeInfo> missing;
    EXPECT_EQ(m_module.GetTypeInfo(IID_IDataObject, missing.Put()), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_FALSE(missing);
}

}  // namespace
