#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <vector>

#include "KvPEXCtl_h.h"

namespace {

struct Row {
    std::string coclass;
    int version;
    std::string classId;
    std::string className;
    std::string state;
    std::string description;
    std::string further;
    const CLSID* compiledId;
};

#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    {#coclassName, version, classId, #className, #state, description, #further, &CLSID_##coclassName},

const std::vector<Row> s_rows{
#include "core/ClassList.inc"
};

#undef KVPE_CLASS

TEST(ClassList, Rows_AreFortyNineOfWhichNineCameLater) {
    ASSERT_EQ(s_rows.size(), 49U);
    std::size_t later = 0;
    for (const Row& row : s_rows) {
        EXPECT_TRUE(row.version == 16 || row.version == 17) << row.coclass;
        later += row.version == 17 ? 1U : 0U;
    }
    EXPECT_EQ(later, 9U);
}

// What clients have registered and compiled in: no row may ever change.
constexpr std::array c_publishedRows{
    "KvPePropertyEditorText 16 E631D337-7F88-44C8-B63F-C9031292FB4E CPropertyEditorText ()",
    "KvPePropertyEditorLWeight 16 7C21FF74-D9D0-4C6B-9C25-1D41B58F4776 CPropertyEditorLWeight ()",
    "KvPePropertyEditorLayer 16 7FFD8B60-5083-4C30-A642-AE08CD6B75E7 CPropertyEditorLayer ()",
    "KvPePropertyEditorMaterial 16 A8DBF45D-5F3F-497C-8DC3-84BD8A078A1B CPropertyEditorMaterial ()",
    "KvPePropertyEditorColor 16 5149A9AC-E7E5-43C7-A78F-A80A53783A8D CPropertyEditorColor (IKvPeColorCtrl)",
    "KvPePropertyEditorLType 16 615F2CF0-C283-4FF9-B839-FAB43A957885 CPropertyEditorLType ()",
    "KvPePropertyEditorNumeric 16 50446CFC-B0CF-432A-BA08-5D1CBDF090C8 CPropertyEditorNumeric "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl)",
    "KvPePropertyEditorBool 16 6C2269DC-77B6-4908-8D0C-4E3CF1036FA7 CPropertyEditorBool ()",
    "KvPePropertyEditorTOLMNumeric 16 D621630B-0BFA-480E-94EF-2EEA1BD58D51 CPropertyEditorTOLMNumeric "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl, IKvPeNumericEditor)",
    "KvPePick2PointsCtrl 16 15CC9D07-16B4-11D6-A4C1-001083782B8E CKvPePick2PointsCtrl (IKvPeButtonEditCtrl, "
    "IKvPePick2PointsCtrl)",
    "KvPePropertyEditorNumericArea 16 7E7D8243-4A38-42F5-A152-0629315D7B2B CPropertyEditorNumericArea "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl)",
    "KvPePropertyEditorEllipses 16 DDE306CA-B5C1-4C92-AFAB-2B37D01A717F CPropertyEditorEllipses "
    "(IKvPeButtonEditCtrl, IKvPeNumericEditor)",
    "KvPePropertyEditorEditButton 16 C504B291-944A-4828-9CFC-D3727B651AC7 CPropertyEditorEditButton "
    "(IKvPeButtonEditCtrl, IKvPeNumericEditor)",
    "KvPePropertyEditorEnum 16 4DE4AD7B-6F4A-441E-98EE-8B1DF0F8BDC4 CPropertyEditorEnum ()",
    "KvPePropertyEditorSpinnerEnum 16 339150DF-E48E-4F42-8002-8489F0FF5D64 CPropertyEditorSpinnerEnum "
    "(IKvPeVariantCtrl)",
    "KvPePropertyEditorHatchEnum 16 8221CC89-8C65-4C50-85FE-53005DE1B3B0 CPropertyEditorHatchEnum ()",
    "KvPePropertyEditorMTextDir 16 E2E8A2A9-935D-4BB5-9347-717DDAEB327F CPropertyEditorMTextDir ()",
    "KvPePropertyEditorHatchISOPenWidth 16 EF5A02F6-7908-407F-A945-2BCB2AE589AB "
    "CPropertyEditorHatchISOPenWidth ()",
    "KvPePropertyEditorHatchPatternName 16 CD5C7ABB-9A0C-4C3A-B0C7-73296AFF7EC1 "
    "CPropertyEditorHatchPatternName (IKvPeButtonEditCtrl)",
    "KvPePropertyEditorEllipsisHatchPatternType 16 04D47EE2-EA15-41BD-A1E7-990331C7CECD "
    "CPropertyEditorEllipsisHatchPatternType (IKvPeButtonEditCtrl)",
    "KvPeDlgLaunchCtrl 16 C6CB13D4-3E36-4AB8-80D2-FC202CBB0ACD CKvPeDlgLaunchCtrl ()",
    "KvPePropertyEditorVariant 16 C14AD0AE-7C2D-48E7-B8FC-2D48AD9149D1 CPropertyEditorVariant "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl, IKvPeNumericEditor, IKvPeVariantCtrl)",
    "KvPePropertyEditorEllipsesHyperlinks 16 45D4C0E8-5896-420D-A27C-6A9793497065 "
    "CPropertyEditorEllipsesHyperlinks (IKvPeButtonEditCtrl, IKvPeNumericEditor)",
    "KvPePropertyEditorSpin 16 2AF455A6-9012-4D01-9E02-A8E5680E1E7E CPropertyEditorSpin (IKvPeSpinCtrl)",
    "KvPePropertyEditorDimArrowHead 16 AA055959-C7F1-4CFD-A2D1-8881D547E79C CPropertyEditorDimArrowHead ()",
    "KvPePropertyEditorGradientPattern 16 94684377-17FE-452E-9A51-7AABFFFE40BA "
    "CPropertyEditorGradientPattern ()",
    "KvPePropertyEditorPlotStyleName 16 55CF0D68-EBD0-4D54-B138-98CCF7BCCB20 CPropertyEditorPlotStyleName ()",
    "KvPePropertyEditorPlotStyleTable 16 98EEC9A9-7F09-48E0-B615-984801A634CB CPropertyEditorPlotStyleTable "
    "()",
    "KvPePropertyEditorNoPickVariant 16 C64EA053-7634-4466-89CF-AFDAB92C8F1B CPropertyEditorNoPickVariant "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl, IKvPeNoPickVariantRW, IKvPeNumericEditor, IKvPeVariantCtrl)",
    "KvPePropertyEditorRasterImageHeight 16 ED2490B2-06E6-4B7E-80D7-1ADAD6363694 "
    "CPropertyEditorRasterImageHeight ()",
    "KvPePropertyEditorRasterImageWidth 16 99CD9966-D002-425D-AB7A-04E500546DB6 "
    "CPropertyEditorRasterImageWidth ()",
    "KvPePropertyEditorTextJustify 16 CC7F3967-6919-42E6-A2ED-6FFA0697AFBB CPropertyEditorTextJustify ()",
    "KvPePropertyEditorEllipseEndAngle 16 7C672133-53DB-4FBF-BA5C-E017F83D866B "
    "CPropertyEditorEllipseEndAngle (IKvPeButtonEditCtrl, IKvPeCalculatorCtrl, IKvPeNumericEditor)",
    "KvPePropertyEditorDimStyle 16 4D0BBBEF-B91D-46AC-A3C0-BEBB947FADE6 CPropertyEditorDimStyle ()",
    "KvPePropertyEditorTextStyle 16 E4A55764-4C3D-405E-BCCB-8C81AB6DBCFC CPropertyEditorTextStyle ()",
    "KvPePropertyEditorMTextStyle 16 151E6750-4079-4609-9FD3-AD68B60F8B65 CPropertyEditorMTextStyle ()",
    "KvPePropertyEditorCustomColor 16 43FD41DE-D16A-44AD-847F-70C08743BDDB CKvPePropertyEditorCustomColor "
    "(IKvPeColorCtrl)",
    "KvPePropertyEditorPwdText 16 39AB6541-F2E3-46B1-ACEE-EDDC2BD8A26A CPropertyEditorPwdText ()",
    "KvPePropertyEditorTextEx 16 8355614D-DC16-4A84-AF66-758E4CA4FE14 CPropertyEditorTextEx "
    "(IKvPeButtonEditCtrl, IKvPeCalculatorCtrl)",
    "KvPePropertyEditorVisualStyle 16 6CADB719-36E3-4E22-BDF1-65B394DADCDF CPropertyEditorVisualStyle ()",
    "KvPePropertyEditorLightLampColor 17 BB069CBE-6B99-4DAC-873C-0CB60DCF144D CPropertyEditorLightLampColor "
    "()",
    "KvPePropertyEditorIntensityScheme 17 AFB16721-D061-4BFC-B8C9-7A24E5D4D458 "
    "CPropertyEditorIntensityScheme ()",
    "KvPePropertyEditorLightWebPreview 17 05F84868-29A5-44BB-BC2B-4F00DCE3F694 "
    "CPropertyEditorLightWebPreview ()",
    "KvPePropertyEditorLightIntensity 17 124268F0-4F78-4434-8E45-87A72CAB0AFA CPropertyEditorLightIntensity "
    "(IKvPeButtonEditCtrl, IKvPeNumericEditor)",
    "KvPePropertyEditorTableStyle 17 1BCAFFC4-3397-486A-80D0-4CBA3C186678 CPropertyEditorTableStyle ()",
    "KvPePropertyEditorAttributeValue 17 64117059-A80B-4EA4-86ED-BB45CC6148A7 CPropertyEditorAttributeValue "
    "(IKvPeButtonEditCtrl)",
    "KvPePropertyEditorPredefBlock 17 6326A3CE-62D5-4080-B682-CD152D507D0B CPropertyEditorPredefBlock ()",
    "KvPePropertyEditorMLeaderStyle 17 0480A986-4ECA-40AB-A1C7-8DCEA0082B0A CPropertyEditorMLeaderStyle ()",
    "KvPePropertySectionLayerCombo 17 0480B986-5ECA-40AB-A2C7-9DCEA0072B0A CPropertySectionLayerCombo ()",
};

TEST(ClassList, Rows_AreThoseThatClientsKnow) {
    ASSERT_EQ(c_publishedRows.size(), s_rows.size());
    for (std::size_t index = 0; index < s_rows.size(); ++index) {
        const Row& row = s_rows[index];
        EXPECT_EQ(row.coclass + " " + std::to_string(row.version) + " " + row.classId + " " + row.className +
                      " " + row.further,
                  c_publishedRows[index]);
    }
}

TEST(ClassList, NamesAndIds_AreUnique) {
    std::set<std::string> names;
    std::set<std::string> ids;
    std::set<std::string> classes;
    for (const Row& row : s_rows) {
        EXPECT_TRUE(names.insert(row.coclass).second) << row.coclass;
        EXPECT_TRUE(ids.insert(row.classId).second) << row.coclass;
        EXPECT_TRUE(classes.insert(row.className).second) << row.coclass;
    }
}

TEST(ClassList, TypeLibraryIds_AreThoseOfTheTable) {
    for (const Row& row : s_rows) {
        CLSID id{};
        const std::wstring text = L"{" + std::wstring(row.classId.begin(), row.classId.end()) + L"}";
        ASSERT_EQ(::CLSIDFromString(text.c_str(), &id), S_OK) << row.coclass;
        EXPECT_TRUE(::IsEqualCLSID(id, *row.compiledId)) << row.coclass;
    }
}

TEST(ClassList, Descriptions_AreTheNamesButForThree) {
    std::vector<std::string> others;
    for (const Row& row : s_rows) {
        if (row.description != row.coclass + " Class") {
            others.push_back(row.description);
        }
    }
    EXPECT_EQ(others, (std::vector<std::string>{"PropertyEditorHatchEnum Class",
                                                "PropertyEditorEllipsisHatchPatternType Class",
                                                "ropertyEditorAttributeValue Class"}));
}

}  // namespace
