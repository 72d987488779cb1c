// The entry of the bridge library to the calculator.
#include "framework/base/CString.h"
#include "host_sdk/KvCalculator.h"
#include "refhost/calculator/CalculatorDialog.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/ServiceCall.h"
#include "refhost/ui/HostResources.h"

namespace {

using kvhost::AngularFormat;
using kvhost::FormulaResult;

AngularFormat DrawingFormat() {
    kvhost::Host* const host = kvhost::Host::Current();
    return host != nullptr ? static_cast<AngularFormat>(host->Variables().Integer(L"AUNITS"))
                           : AngularFormat::Degrees;
}

std::optional<FormulaResult> ShowDialog(const CString& caption, const CString& text, bool writable) {
    const kvhost::HostResources resources;
    kvhost::CalculatorDialog dialog(caption, text, DrawingFormat(), writable);
    return dialog.DoModal() == IDOK ? dialog.Result() : std::nullopt;
}

/// A prepared answer's text is the formula; without one the text that the calculator begins with.
std::optional<FormulaResult> AnswerOrShow(const CString& caption, const CString& text, bool writable) {
    kvhost::Answers::NoteShown(text.Std());
    const auto answer = kvhost::Answers::Take({IDCANCEL, {}});
    if (!answer) {
        return ShowDialog(caption, text, writable);
    }
    return answer->button == IDOK && writable
               ? kvhost::Formula::Evaluate(answer->text.value_or(text.Std()), DrawingFormat())
               : std::nullopt;
}

void Fill(KvCalculatorResult& record, const FormulaResult& result) {
    record.kind = result.isPoint           ? KVCALC_POINT
                  : result.value.HasUnit() ? KVCALC_NUMBER_WITH_UNIT
                                           : KVCALC_NUMBER;
    record.x = result.point[0];
    record.y = result.point[1];
    record.z = result.point[2];
    record.value = result.value.number;
    record.unit = KvCalCompoundUnit(result.value.lengthPower, result.value.anglePower);
}

}  // namespace

extern "C" __declspec(dllexport) bool InvokeDialog(KvCalculatorResult* record, const CString* caption,
                                                   const CString* text, bool writable) {
    kvhost::ServiceCall call(L"InvokeDialog", caption != nullptr ? caption->Std() : std::wstring(),
                             text != nullptr ? text->Std() : std::wstring(), writable);
    if (call.Fails() || record == nullptr || caption == nullptr || text == nullptr) {
        return call.Returns(false);
    }
    const std::optional<FormulaResult> result = AnswerOrShow(*caption, *text, writable);
    if (result) {
        Fill(*record, *result);
    }
    return call.Returns(result.has_value());
}
