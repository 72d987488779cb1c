#include "palette/commands/Reports.h"

#include <cwchar>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "framework/com/SafeArray.h"
#include "palette/commands/Console.h"
#include "palette/commands/TextTable.h"
#include "palette/rows/NumberRows.h"
#include "palette/rows/PaintedText.h"
#include "palette/rows/RowSet.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"

namespace kvpalette {

namespace {

using Json = nlohmann::ordered_json;

constexpr int c_jsonIndent = 2;

std::string Utf8(std::wstring_view text) {
    return ToUtf8(text);
}

std::wstring Printed(const Json& json) {
    std::wstring text;
    static_cast<void>(FromUtf8(json.dump(c_jsonIndent) + "\n", text));
    return text;
}

std::wstring HandleText(KvDbObjectId id) {
    wchar_t text[24] = L"";
    std::swprintf(text, std::size(text), L"%llX", static_cast<unsigned long long>(id.handle()));
    return text;
}

const wchar_t* KindName(RowKind kind) {
    switch (kind) {
        case RowKind::Control:
            return L"control";
        case RowKind::Text:
            return L"text";
        default:
            return L"palette";
    }
}

// What the row shows: a control paints it, whether it is in sight or not.
std::wstring ShownText(const PaletteRow& row, const RowReading& reading, RowsPane& pane) {
    if (row.kind == RowKind::Painted || (row.property.flags & kvhost::PropertyMasked)) {
        return ReadingText(row.property, reading);
    }
    if (row.control) {
        return PaintedText(*row.control);
    }
    HostedControl control(pane.Surroundings());
    RowSelection selection;
    if (FAILED(RowSet::SelectionOf(row.property, selection)) ||
        FAILED(control.Create(row.classId, row.property.name, selection))) {
        return ReadingText(row.property, reading);
    }
    return PaintedText(control);
}

// Numbers that differ behind the places shown are one value to the control, so that they are one here.
const wchar_t* StateShown(const PaletteRow& row, const RowReading& reading) {
    const bool isOneNumber =
        reading.state == RowState::Varies && row.kind == RowKind::Control && PrintsOneNumber(row.property);
    return StateName(isOneNumber ? RowState::Specific : reading.state);
}

Json JsonOf(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return nullptr;
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE;
        case VT_I2:
            return value.iVal;
        case VT_I4:
            return value.lVal;
        case VT_R8:
            return value.dblVal;
        default:
            break;
    }
    fw::SafeArrayView view;
    if ((value.vt & VT_ARRAY) && SUCCEEDED(fw::SafeArrayView::FromVariant(&value, view))) {
        Json array = Json::array();
        for (LONG index = 0; index < view.Count(); ++index) {
            fw::Variant element;
            array.push_back(SUCCEEDED(view.GetVariant(index, element)) ? JsonOf(element.Get()) : Json());
        }
        return array;
    }
    return Utf8(ValueText(value));
}

// One property of one object, as the database holds it.
struct HeldProperty {
    std::wstring name;
    fw::Variant value;
    bool unspecified = false;
    std::wstring expression;
    bool masked = false;
};

std::vector<HeldProperty> PropertiesOf(const kvhost::Object& object) {
    std::vector<HeldProperty> held;
    const kvhost::PropertyTable* const table = kvhost::PropertyTable::Of(object.ClassName());
    if (!table) {
        return held;
    }
    for (const kvhost::PropertyDescription& row : table->Rows()) {
        HeldProperty property{row.displayName,
                              {},
                              object.IsUnspecified(row.name),
                              object.Expression(row.name),
                              row.Has(kvhost::PropertyMasked)};
        if (row.get && row.get(object, property.value) == Tolm::eOk) {
            held.push_back(std::move(property));
        }
    }
    for (const auto& [name, text] : object.CustomAttributes()) {
        held.push_back({name, fw::Variant::FromString(text), object.IsUnspecified(name),
                        object.Expression(name), false});
    }
    return held;
}

std::wstring HeldText(const HeldProperty& property) {
    std::wstring text = ValueText(property.value.Get());
    return property.masked && !text.empty() ? std::wstring(L"********") : text;
}

Json JsonOf(const kvhost::Object& object) {
    Json properties = Json::object();
    Json unspecified = Json::array();
    Json expressions = Json::object();
    for (const HeldProperty& property : PropertiesOf(object)) {
        properties[Utf8(property.name)] =
            property.masked ? Json(Utf8(HeldText(property))) : JsonOf(property.value.Get());
        if (property.unspecified) {
            unspecified.push_back(Utf8(property.name));
        }
        if (!property.expression.empty()) {
            expressions[Utf8(property.name)] = Utf8(property.expression);
        }
    }
    return {{"handle", Utf8(HandleText(object.Id()))},
            {"class", Utf8(object.ClassName())},
            {"properties", properties},
            {"unspecified", unspecified},
            {"expressions", expressions}};
}

}  // namespace

std::wstring Reports::Rows(bool json) {
    PaletteWindow& palette = m_window.Palette();
    RowsPane& pane = palette.Pane();
    const std::size_t count = m_window.Document().GetSelection().PickFirst().size();
    TextTable table({L"Row", L"Category", L"Control", L"Text", L"State", L"Read-only"});
    Json rows = Json::array();
    for (const PaletteRow& row : pane.Rows()) {
        const RowReading reading = ReadRow(row.property);
        const std::wstring text = ShownText(row, reading, pane);
        const bool readOnly = reading.readOnly || row.kind == RowKind::Painted;
        if (json) {
            rows.push_back({{"name", Utf8(row.property.name)},
                            {"category", Utf8(row.property.category)},
                            {"control", Utf8(row.property.control)},
                            {"text", Utf8(text)},
                            {"state", Utf8(StateShown(row, reading))},
                            {"readOnly", readOnly},
                            {"shownBy", Utf8(KindName(row.kind))}});
        } else {
            table.Add({row.property.name, row.property.category, row.property.control, text,
                       StateShown(row, reading), readOnly ? L"yes" : L"no"});
        }
    }
    if (json) {
        return Printed({{"class", Utf8(palette.Title())}, {"count", count}, {"rows", rows}});
    }
    return palette.Title() + L", " + std::to_wstring(count) + (count == 1 ? L" object\n" : L" objects\n") +
           table.Text();
}

std::wstring Reports::Objects(bool json) {
    Json objects = Json::array();
    std::wstring text;
    for (const KvDbObjectId id : m_window.Document().GetSelection().PickFirst()) {
        const kvhost::Object* const object = kvhost::Database::Peek(id);
        if (!object) {
            continue;
        }
        if (json) {
            objects.push_back(JsonOf(*object));
            continue;
        }
        text += HandleText(id) + L" " + object->ClassName() + L"\n";
        for (const HeldProperty& property : PropertiesOf(*object)) {
            text += L"  " + property.name + L" = " + HeldText(property);
            text += property.unspecified ? L" (unspecified)" : L"";
            text += property.expression.empty() ? L"" : L" (expression " + property.expression + L")";
            text += L"\n";
        }
    }
    return json ? Printed({{"objects", objects}}) : text;
}

std::wstring Reports::List(const std::wstring& row, const std::vector<ListEntry>& entries, bool json) {
    Json list = Json::array();
    std::wstring text;
    for (const ListEntry& entry : entries) {
        list.push_back({{"text", Utf8(entry.text)}, {"current", entry.current}});
        text += (entry.current ? L"* " : L"  ") + entry.text + L"\n";
    }
    return json ? Printed({{"row", Utf8(row)}, {"entries", list}}) : text;
}

std::wstring Reports::Catalogue(bool json) {
    std::map<std::wstring, std::set<std::wstring>> rowsOfControl;
    for (const KvDbObjectId id : m_window.Document().GetDatabase().ModelSpaceEntities()) {
        const std::wstring className = kvhost::ClassNameOf({&id, 1});
        for (const kvhost::PropertyRow& row : kvhost::RowsOf({&id, 1})) {
            rowsOfControl[row.control].insert(className + L"/" + row.name);
        }
    }
    TextTable table({L"Class", L"Class id", L"Creatable", L"Rows"});
    Json classes = Json::array();
    for (const ControlClass& entry : m_catalogue.Classes()) {
        const bool creatable = ControlCatalogue::IsCreatable(entry);
        Json rows = Json::array();
        std::wstring names;
        for (const std::wstring& name : rowsOfControl[entry.name]) {
            rows.push_back(Utf8(name));
            names += (names.empty() ? L"" : L", ") + name;
        }
        table.Add({entry.name, ClassIdText(entry.classId), creatable ? L"yes" : L"no", names});
        classes.push_back({{"name", Utf8(entry.name)},
                           {"classId", Utf8(ClassIdText(entry.classId))},
                           {"creatable", creatable},
                           {"rows", rows}});
    }
    return json ? Printed({{"classes", classes}}) : table.Text();
}

}  // namespace kvpalette
