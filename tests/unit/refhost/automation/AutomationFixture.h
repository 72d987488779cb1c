#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "framework/base/Hresult.h"
#include "framework/com/ComPtr.h"
#include "framework/com/Variant.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Database.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/UndoController.h"
#include "refhost/editor/Document.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/JournalText.h"

namespace kvtest {

/// A running host with one empty drawing, and the short forms of automation calls. Checks at the end that no
/// automation object is left.
class AutomationFixture : public ::testing::Test {
protected:
    AutomationFixture() : m_document(m_session->Documents().New()), m_database(m_document.GetDatabase()) {}
    ~AutomationFixture() override { EXPECT_EQ(kvhost::LiveObject::Count(), 0); }

    /// Appends a `T` that `fill` has been run on.
    template <class T, class Fill>
    KvDbObjectId Add(Fill fill) {
        auto object = std::make_unique<T>();
        fill(*object);
        KvDbObjectId id;
        EXPECT_EQ(m_database.AppendEntity(std::move(object), id), Tolm::eOk);
        return id;
    }
    template <class T>
    KvDbObjectId Add() {
        return Add<T>([](T&) {});
    }

    /// Opens for write, runs `change`, closes.
    template <class T, class Change>
    void Write(KvDbObjectId id, Change change) {
        const kvhost::ScopedOpen<T> object(id, KvDb::kForWrite);
        ASSERT_TRUE(static_cast<bool>(object));
        ASSERT_EQ(change(*object), Tolm::eOk);
    }

    static fw::ComPtr<IDispatch> ObjectOf(KvDbObjectId id) {
        fw::ComPtr<IDispatch> object;
        EXPECT_EQ(kvhost::GetAutomationObject(id, object.Put()), S_OK);
        return object;
    }

    static DISPID IdOfName(IDispatch* object, const wchar_t* name) {
        LPOLESTR text = const_cast<LPOLESTR>(name);
        DISPID dispid = DISPID_UNKNOWN;
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &dispid), S_OK);
        return dispid;
    }

    static HRESULT Get(IDispatch* object, DISPID dispid, fw::Variant& value, EXCEPINFO* exception = nullptr) {
        DISPPARAMS none{};
        return object->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Put(),
                              exception, nullptr);
    }
    static fw::Variant Get(IDispatch* object, const wchar_t* name) {
        fw::Variant value;
        EXPECT_EQ(Get(object, IdOfName(object, name), value), S_OK);
        return value;
    }
    static std::wstring GetText(IDispatch* object, const wchar_t* name) {
        return std::wstring(Get(object, name).StringView());
    }

    static HRESULT Put(IDispatch* object, DISPID dispid, fw::Variant value, EXCEPINFO* exception = nullptr) {
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{value.Address(), &named, 1, 1};
        return object->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                              nullptr, exception, nullptr);
    }
    static HRESULT Put(IDispatch* object, const wchar_t* name, fw::Variant value,
                       EXCEPINFO* exception = nullptr) {
        return Put(object, IdOfName(object, name), std::move(value), exception);
    }

    /// The key by which an object is asked about one of its properties.
    static VARIANT KeyOf(DISPID dispid) {
        VARIANT key{};
        key.vt = VT_I4;
        key.lVal = dispid;
        return key;
    }
    /// The key by which a dynamic property is asked about an object.
    static VARIANT KeyOf(IUnknown* object) {
        VARIANT key{};
        key.vt = VT_UNKNOWN;
        key.punkVal = object;
        return key;
    }

    static void FreeException(EXCEPINFO& exception) {
        ::SysFreeString(exception.bstrSource);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
        exception = {};
    }

    kvhost::HostSession m_session;
    kvhost::Document& m_document;
    kvhost::Database& m_database;
};

}  // namespace kvtest
