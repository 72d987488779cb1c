#pragma once

// Coclass names of the controls that rows are edited with.
namespace kvhost::controls {

inline constexpr wchar_t Text[] = L"KvPePropertyEditorText";
inline constexpr wchar_t TextWithExpression[] = L"KvPePropertyEditorTextEx";
inline constexpr wchar_t TextWithDialog[] = L"KvPePropertyEditorEditButton";
inline constexpr wchar_t DialogOnly[] = L"KvPePropertyEditorEllipses";
inline constexpr wchar_t Hyperlinks[] = L"KvPePropertyEditorEllipsesHyperlinks";
inline constexpr wchar_t Password[] = L"KvPePropertyEditorPwdText";
inline constexpr wchar_t Length[] = L"KvPePropertyEditorTOLMNumeric";
inline constexpr wchar_t Number[] = L"KvPePropertyEditorNumeric";
inline constexpr wchar_t Area[] = L"KvPePropertyEditorNumericArea";
inline constexpr wchar_t Coordinates[] = L"KvPePropertyEditorVariant";
inline constexpr wchar_t Truth[] = L"KvPePropertyEditorBool";
inline constexpr wchar_t Choice[] = L"KvPePropertyEditorEnum";
inline constexpr wchar_t GroupedChoice[] = L"KvPePropertyEditorSpinnerEnum";
inline constexpr wchar_t Color[] = L"KvPePropertyEditorColor";
inline constexpr wchar_t Layer[] = L"KvPePropertyEditorLayer";
inline constexpr wchar_t Linetype[] = L"KvPePropertyEditorLType";

}  // namespace kvhost::controls
