#include "families/KvPeEnumTypeInfo.h"

#include "framework/base/Hresult.h"
#include "framework/com/ComPtr.h"

namespace {

// The records of type information, each given back the way it was got.
class HeldTypeAttr {
public:
    explicit HeldTypeAttr(ITypeInfo& info) : m_info(info) {
        fw::Ignore(info.GetTypeAttr(&m_attributes));  // null tells it
    }
    HeldTypeAttr(const HeldTypeAttr&) = delete;
    HeldTypeAttr& operator=(const HeldTypeAttr&) = delete;
    ~HeldTypeAttr() {
        if (m_attributes) {
            m_info.ReleaseTypeAttr(m_attributes);
        }
    }
    [[nodiscard]] UINT Variables() const { return m_attributes ? m_attributes->cVars : 0; }
    [[nodiscard]] UINT Functions() const { return m_attributes ? m_attributes->cFuncs : 0; }

private:
    ITypeInfo& m_info;
    TYPEATTR* m_attributes = nullptr;
};

class HeldVarDesc {
public:
    HeldVarDesc(ITypeInfo& info, UINT index) : m_info(info) {
        fw::Ignore(info.GetVarDesc(index, &m_description));  // null tells it
    }
    HeldVarDesc(const HeldVarDesc&) = delete;
    HeldVarDesc& operator=(const HeldVarDesc&) = delete;
    ~HeldVarDesc() {
        if (m_description) {
            m_info.ReleaseVarDesc(m_description);
        }
    }
    explicit operator bool() const { return m_description != nullptr; }
    const VARDESC* operator->() const { return m_description; }

private:
    ITypeInfo& m_info;
    VARDESC* m_description = nullptr;
};

class HeldFuncDesc {
public:
    HeldFuncDesc(ITypeInfo& info, UINT index) : m_info(info) {
        fw::Ignore(info.GetFuncDesc(index, &m_description));  // null tells it
    }
    HeldFuncDesc(const HeldFuncDesc&) = delete;
    HeldFuncDesc& operator=(const HeldFuncDesc&) = delete;
    ~HeldFuncDesc() {
        if (m_description) {
            m_info.ReleaseFuncDesc(m_description);
        }
    }
    explicit operator bool() const { return m_description != nullptr; }
    const FUNCDESC* operator->() const { return m_description; }

private:
    ITypeInfo& m_info;
    FUNCDESC* m_description = nullptr;
};

// Both scans stop at the first member of the id whose type is one of the library's own; 0 means none.

HREFTYPE TypeOfVariable(ITypeInfo& info, UINT count, DISPID dispid) {
    for (UINT index = 0; index < count; ++index) {
        const HeldVarDesc variable(info, index);
        if (variable && variable->memid == dispid && variable->elemdescVar.tdesc.vt == VT_USERDEFINED) {
            return variable->elemdescVar.tdesc.hreftype;
        }
    }
    return 0;
}

HREFTYPE TypeOfFunction(ITypeInfo& info, UINT count, DISPID dispid) {
    for (UINT index = 0; index < count; ++index) {
        const HeldFuncDesc function(info, index);
        if (function && function->memid == dispid && function->elemdescFunc.tdesc.vt == VT_USERDEFINED) {
            return function->elemdescFunc.tdesc.hreftype;
        }
    }
    return 0;
}

HREFTYPE TypeOfMember(ITypeInfo& info, DISPID dispid) {
    const HeldTypeAttr attributes(info);
    const HREFTYPE ofVariable = TypeOfVariable(info, attributes.Variables(), dispid);
    return ofVariable != 0 ? ofVariable : TypeOfFunction(info, attributes.Functions(), dispid);
}

}  // namespace

KvPeEnumTypeInfo::KvPeEnumTypeInfo(IDispatch* object, DISPID dispid) {
    fw::ComPtr<ITypeInfo> info;
    if (FAILED(object->GetTypeInfo(0, ::GetSystemDefaultLCID(), info.Put())) || !info) {
        return;
    }
    const HREFTYPE type = TypeOfMember(*info.Get(), dispid);
    fw::ComPtr<ITypeInfo> enumeration;
    if (type != 0 && SUCCEEDED(info->GetRefTypeInfo(type, enumeration.Put())) && enumeration) {
        TakeMembers(*enumeration.Get());
    }
}

void KvPeEnumTypeInfo::TakeMembers(ITypeInfo& enumeration) {
    const UINT members = HeldTypeAttr(enumeration).Variables();
    values.resize(members);
    names.resize(members);
    count = static_cast<int>(members);
    for (UINT index = 0; index < members; ++index) {
        const HeldVarDesc member(enumeration, index);
        if (!member) {
            continue;
        }
        if (member->varkind == VAR_CONST && member->lpvarValue) {
            fw::Ignore(values[index].CopyFrom(*member->lpvarValue));  // a value that can't be copied is none
        }
        UINT got = 0;
        fw::Ignore(enumeration.GetNames(member->memid, names[index].Put(), 1, &got));  // likewise
    }
}
