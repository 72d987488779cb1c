#pragma once

#include "core/CKvPeCtrlBase.h"
#include "core/ExceptionRecord.h"

/// One write of a value to the selection, object by object: the outcome, and what the user has been told of
/// it.
class CKvPeCtrlBase::ValueWriter {
public:
    /// `value` is the caller's and outlives the writer.
    ValueWriter(CKvPeCtrlBase& control, VARIANT& value, ValueType type, bool hasDatabase);
    ValueWriter(const ValueWriter&) = delete;
    ValueWriter& operator=(const ValueWriter&) = delete;

    /// Writes one object, unless it is locked. A failure is counted and shown, and the loop goes on; an
    /// exception is a failure like any other.
    void Write(const SelectionEntry& entry);

    /// The last host result, cleared by every failure that leaves another object to have succeeded.
    [[nodiscard]] HRESULT Result() const { return m_result; }
    [[nodiscard]] bool SawLockedObject() const { return m_sawLockedObject; }

private:
    void WriteByDispid(const SelectionEntry& entry);
    void WriteDynamic(const SelectionEntry& entry);
    /// The last host result of one object; the one of the object before when no host call is due.
    [[nodiscard]] HRESULT PutByDispid(const SelectionEntry& entry);
    [[nodiscard]] HRESULT PutDynamic(const SelectionEntry& entry, const DynamicForms& forms);
    void GatherDispidFailure();
    void GatherDynamicFailure();
    void CountFailure() { ++m_control.m_failedObjectCount; }
    void ClearResultUnlessAllFailed();
    void Show(const wchar_t* description);
    [[nodiscard]] bool MayShowAnother() const;
    [[nodiscard]] HRESULT InvokePut(IDispatch& object, long dispid);
    template <class Key, class Object>
    [[nodiscard]] HRESULT SetExpression(Key key, Object* object);

    CKvPeCtrlBase& m_control;
    VARIANT& m_value;
    ValueType m_type;
    bool m_hasDatabase;
    HRESULT m_result = S_OK;
    bool m_sawLockedObject = false;
    int m_shownMessages = 0;
    SCODE m_rememberedCode = 0;
    ExceptionRecord m_exception;  // of the object that is being written
};
