#!/usr/bin/env python3
"""Writes an IDL that is wrong on purpose, made from that of the module and its class table.

wrong_types.py IDL CLASS_LIST OUTPUT
"""

import sys

# What is changed, into what, and the rules that must be reported as broken. Each change is found by one subject.
FAULTS = [
    ("uuid(5C232F67-", "uuid(5C232F68-", ["the id"]),
    ("version(1.0),", "version(1.1),", ["the version"]),
    ("lcid(1033)", "lcid(1031)", ["the language"]),
    ("library KVPEXCTLLib", "library KVPEXCTLibrary", ["the name"]),
    ("KvPEXCtl 1.0 Type Library", "KvPEXCtl Type Library", ["the description"]),
    ("PE_TOLM_OTHER = 3", "PE_TOLM_OTHER = 7", ["KvPeNumericType has its values"]),
    ("uuid(AD52023A-", "uuid(AD52023B-", ["IKvPeNumericEditor is there by its id"]),
    ("VARIANT cookieArray", "VARIANT* cookieArray", ["IKvPeVariantCtrl has its operations in order"]),
    ("        HRESULT SetNoMetaColor([in] VARIANT_BOOL bNoMetaColors);\n"
     "        HRESULT SetAllowNoneColor([in] VARIANT_BOOL bAllowNone);\n",
     "        HRESULT SetAllowNoneColor([in] VARIANT_BOOL bAllowNone);\n"
     "        HRESULT SetNoMetaColor([in] VARIANT_BOOL bNoMetaColors);\n",
     ["IKvPeColorCtrl has its operations in order"]),
    ("interface IKvPeSpinCtrl :", "interface IKvPeSpinControl :", ["IKvPeSpinCtrl has its name"]),
    ("interface IKvPeNoPickVariantRW : IUnknown", "interface IKvPeNoPickVariantRW : IKvPeVariantCtrl",
     ["IKvPeNoPickVariantRW has its base", "IKvPeNoPickVariantRW has its operations behind those of its base"]),
    ("interface IKvPeButtonEditCtrl : IUnknown\n    {\n        [propput] HRESULT",
     "interface IKvPeButtonEditCtrl : IUnknown\n    {\n        HRESULT",
     ["IKvPeButtonEditCtrl has its operations in order"]),
    ("[in] BSTR prompt1, [in] BSTR prompt2", "[in] BSTR prompt1", ["IKvPePick2PointsCtrl has its operations in order"]),
    ("HRESULT SetCalculatorMode", "void SetCalculatorMode", ["IKvPeCalculatorCtrl has its operations in order"]),
    ("[id(2)] HRESULT Refresh", "[id(8)] HRESULT Refresh", ["IKvPiPropertyEditControl has its operations in order"]),
    ("interface IKvPiPropertyEditControl2 : IKvPiPropertyEditControl",
     "interface IKvPiPropertyEditControl2 : IDispatch",
     ["IKvPiPropertyEditControl2 has its base",
      "IKvPiPropertyEditControl2 has its operations behind those of its base"]),
    ("        [id(-600)] HRESULT OnClick();", "        [id(-599)] HRESULT OnFirst();\n        [id(-600)] HRESULT OnClick();",
     ["IKvPiPropertyEditEventsSink has its operations in order",
      "IKvPiPropertyEditEventsSink2 has its operations behind those of its base"]),
    ("[object, dual, uuid(355AD1D1-", "[object, uuid(355AD1D1-",
     ["IKvPiPropertyEditEventsSink2 is called by id too"]),
    ('"A8DBF45D-', '"A8DBF45E-', ["KvPePropertyEditorMaterial is there by its id"]),
    ("KVPE_CLASS(KvPePropertyEditorEnum,", "KVPE_CLASS(KvPePropertyEditorEnumeration,",
     ["KvPePropertyEditorEnum has its name"]),
    ('"KvPePropertyEditorLayer Class"', '"KvPePropertyEditorLayer"', ["KvPePropertyEditorLayer has its description"]),
    ("KVPE_CLASS(KvPePropertyEditorBool, 16,", "KVPE_CLASS(KvPePropertyEditorBool, 17,",
     ["KvPePropertyEditorBool carries the version of its registered name"]),
    ("KVPE_CLASS(KvPePropertyEditorColor,", "KVPE_DEAF_CLASS(KvPePropertyEditorColor,",
     ["KvPePropertyEditorColor names its interface and its events"]),
    ("KVPE_CLASS(KvPePropertyEditorLType,", "KVPE_NO_CLASS(KvPePropertyEditorLType,",
     ["KvPePropertyEditorLType is there by its id", "it has as many classes as the class table"]),
]

MACROS = """
#define KVPE_DEAF_CLASS(name, programVersion, classId, class, state, description, further)    \\
    [uuid(classId), version(programVersion.0), control, helpstring(description)]              \\
    coclass name                                                                              \\
    {                                                                                         \\
        [default] interface IKvPiPropertyEditControl;                                         \\
    };
#define KVPE_NO_CLASS(name, programVersion, classId, class, state, description, further)
"""


def main():
    idl, class_list, output = sys.argv[1:4]
    include = '#include "core/ClassList.inc"'
    with open(idl, encoding="utf-8") as file:
        text = file.read()
    with open(class_list, encoding="utf-8") as file:
        text = text.replace(include, MACROS + file.read())
    for right, wrong, _ in FAULTS:
        if text.count(right) != 1:
            sys.exit(f"wrong_types.py: {right!r} stands {text.count(right)} times in {idl} and {class_list}")
        text = text.replace(right, wrong)
    with open(output, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main()
