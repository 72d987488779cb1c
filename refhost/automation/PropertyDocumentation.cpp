#include "refhost/automation/PropertyDocumentation.h"

#include "refhost/automation/DynamicAttribute.h"
#include "refhost/automation/PropertyTable.h"

namespace kvhost {

namespace {

constexpr char c_introduction[] =
    "# Properties of objects\n"
    "\n"
    "Made from the property tables by `kvhost_describe`; change the tables in `refhost/automation/`, not "
    "this\n"
    "page. A row of a table is a property of the automation interface and a row of the palette at once.\n"
    "\n"
    "Types are those of automation: `text` (VT_BSTR), `number` (VT_R8), `integer` (VT_I4), `truth` "
    "(VT_BOOL),\n"
    "`numbers` (an array of VT_R8). Lengths are in drawing units, angles in radians.\n";

constexpr char c_dynamicIntroduction[] =
    "## Custom attributes\n"
    "\n"
    "Every text that a drawing attaches to an object under a name of its own, as imported maps do, is a "
    "dynamic\n"
    "property of that name. These names have a behaviour of their own:\n"
    "\n"
    "| name | forms | type | control | abilities | values |\n"
    "|---|---|---|---|---|---|\n";

// Names in the tables are plain ASCII.
std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t character : text) {
        narrow += static_cast<char>(character);
    }
    return narrow;
}

std::string TypeName(VARTYPE type) {
    switch (type) {
        case VT_BSTR:
            return "text";
        case VT_R8:
            return "number";
        case VT_I4:
            return "integer";
        case VT_BOOL:
            return "truth";
        default:
            return "numbers";
    }
}

void AppendAbility(std::string& abilities, bool has, const char* name) {
    if (has) {
        abilities += (abilities.empty() ? "" : ", ");
        abilities += name;
    }
}

std::string Abilities(const PropertyDescription& row) {
    std::string abilities;
    AppendAbility(abilities, row.Has(PropertyReadOnly), "read-only");
    AppendAbility(abilities, row.Has(PropertyUnspecified), "unspecified");
    AppendAbility(abilities, row.Has(PropertyExpression), "expression");
    AppendAbility(abilities, row.Has(PropertyDialog), "dialog");
    AppendAbility(abilities, row.Has(PropertyMasked), "masked");
    AppendAbility(abilities, row.elements != nullptr, "grouped");
    AppendAbility(abilities, row.Has(PropertyAngle), "angle");
    AppendAbility(abilities, row.Has(PropertyRawAngle), "raw angle");
    AppendAbility(abilities, row.Has(PropertyPlain), "without unit");
    if (row.enumeration != nullptr) {
        AppendAbility(abilities, true, ("one of " + Narrow(row.enumeration->name)).c_str());
    }
    return abilities;
}

std::string TableSection(const PropertyTable& table) {
    std::string section = "\n## " + Narrow(table.ClassName()) +
                          "\n\n| property | row | category | id | type | control | abilities |\n"
                          "|---|---|---|---|---|---|---|\n";
    for (const PropertyDescription& row : table.Rows()) {
        section += "| `" + Narrow(row.name) + "` | " + Narrow(row.displayName) + " | " +
                   Narrow(row.category) + " | " + std::to_string(row.dispid) + " | " + TypeName(row.type) +
                   " | `" + Narrow(row.control) + "` | " + Abilities(row) + " |\n";
    }
    return section;
}

std::string KindRow(const DynamicAttributeKind& kind) {
    std::string abilities;
    AppendAbility(abilities, kind.readOnly, "read-only");
    AppendAbility(abilities, kind.unspecified, "unspecified");
    AppendAbility(abilities, kind.expression, "expression");
    AppendAbility(abilities, kind.dialogProcedure != nullptr, "dialog");
    AppendAbility(abilities, kind.dialogMacro != nullptr, "macro");
    std::string values;
    for (const DynamicAttributeValue& value : kind.values) {
        AppendAbility(values, true, (Narrow(value.name) + " (" + Narrow(value.stored) + ")").c_str());
    }
    return "| " + Narrow(kind.name) + " | " + (kind.byIdOnly ? "by id" : "by object and by id") + " | " +
           TypeName(kind.type) + " | `" + Narrow(kind.control) + "` | " + abilities + " | " + values + " |\n";
}

}  // namespace

std::string ObjectPropertiesPage() {
    std::string page = c_introduction;
    for (const PropertyTable* const table : PropertyTable::All()) {
        page += TableSection(*table);
    }
    page += '\n';
    page += c_dynamicIntroduction;
    for (const DynamicAttributeKind& kind : SpecialAttributeKinds()) {
        page += KindRow(kind);
    }
    return page;
}

}  // namespace kvhost
