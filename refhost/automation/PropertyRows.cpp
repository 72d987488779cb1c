#include "refhost/automation/PropertyRows.h"

#include <algorithm>
#include <set>

#include "refhost/automation/DynamicAttribute.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/automation/RowControls.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Database.h"

namespace kvhost {

namespace {

// The selected objects with what is asked of them again and again.
struct Subject {
    KvDbObjectId id;
    const Object* object;
    const PropertyTable* table;
    fw::ComPtr<IDispatch> automation;
};

// Empty when an object has no properties at all: there is no row then that all have.
std::vector<Subject> SubjectsOf(std::span<const KvDbObjectId> selection) {
    std::vector<Subject> subjects;
    subjects.reserve(selection.size());
    for (const KvDbObjectId id : selection) {
        Subject subject{id, Database::Peek(id), nullptr, {}};
        if (subject.object == nullptr || FAILED(GetAutomationObject(id, subject.automation.Put()))) {
            return {};
        }
        subject.table = PropertyTable::Of(subject.object->ClassName());
        subjects.push_back(std::move(subject));
    }
    return subjects;
}

bool IsSameRow(const PropertyDescription& left, const PropertyDescription& right) {
    return left.type == right.type && std::wstring_view(left.displayName) == right.displayName &&
           std::wstring_view(left.category) == right.category &&
           std::wstring_view(left.control) == right.control;
}

const PropertyDescription* SameRowIn(const PropertyTable& table, const PropertyDescription& wanted) {
    const auto rows = table.Rows();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const PropertyDescription& row) { return IsSameRow(row, wanted); });
    return found == rows.end() ? nullptr : &*found;
}

PropertyRow RowLike(const PropertyDescription& description) {
    return {description.displayName,
            description.category,
            description.control,
            description.type,
            description.flags,
            {},
            description.elements != nullptr ? description.elements->groupSize : 0};
}

// One row of the tables, if the classes of all subjects have it.
void AppendTableRow(const PropertyDescription& wanted, const std::vector<Subject>& subjects,
                    const std::set<const PropertyTable*>& tables, std::vector<PropertyRow>& rows) {
    PropertyRow row = RowLike(wanted);
    for (const PropertyTable* const table : tables) {
        const PropertyDescription* const match = SameRowIn(*table, wanted);
        if (match == nullptr) {
            return;
        }
        row.flags |= match->flags & PropertyReadOnly;
    }
    row.entries.reserve(subjects.size());
    const PropertyTable* lastTable = nullptr;
    DISPID dispid = 0;
    for (const Subject& subject : subjects) {
        if (subject.table != lastTable) {
            lastTable = subject.table;
            dispid = SameRowIn(*lastTable, wanted)->dispid;
        }
        row.entries.push_back({subject.automation, {}, dispid});
    }
    rows.push_back(std::move(row));
}

// Null id when the object is no block reference or has no such attribute.
KvDbObjectId AttributeNamed(const Object& object, std::wstring_view tag) {
    const auto* const reference = dynamic_cast<const BlockReference*>(&object);
    if (reference == nullptr) {
        return {};
    }
    for (const KvDbObjectId id : reference->AttributeIds()) {
        if (Database::PeekAs<Attribute>(id)->Tag() == tag) {
            return id;
        }
    }
    return {};
}

bool AppendAttributeEntry(KvDbObjectId attribute, PropertyRow& row) {
    PropertyRowEntry entry;
    entry.dispid = DispidAttributeValue;
    if (FAILED(GetAutomationObject(attribute, entry.object.Put()))) {
        return false;
    }
    row.entries.push_back(std::move(entry));
    return true;
}

// The values of block references' attributes stand among the references' own rows, named by their tags.
void AppendAttributeRows(const std::vector<Subject>& subjects, std::vector<PropertyRow>& rows) {
    const auto* const first = dynamic_cast<const BlockReference*>(subjects.front().object);
    if (first == nullptr) {
        return;
    }
    std::set<std::wstring> seen;
    for (const KvDbObjectId id : first->AttributeIds()) {
        const std::wstring& tag = Database::PeekAs<Attribute>(id)->Tag();
        if (!seen.insert(tag).second) {
            continue;
        }
        PropertyRow row = RowLike(*AttributeProperties().Find(DispidAttributeValue));
        row.name = tag;
        row.category = L"Attributes";
        const bool allHaveIt = std::all_of(subjects.begin(), subjects.end(), [&](const Subject& subject) {
            const KvDbObjectId attribute = AttributeNamed(*subject.object, tag);
            return !attribute.isNull() && AppendAttributeEntry(attribute, row);
        });
        if (allHaveIt) {
            rows.push_back(std::move(row));
        }
    }
}

unsigned FlagsOf(const DynamicAttributeKind& kind) {
    return (kind.readOnly ? PropertyReadOnly : 0U) | (kind.unspecified ? PropertyUnspecified : 0U) |
           (kind.expression ? PropertyExpression : 0U) | (kind.HasDialog() ? PropertyDialog : 0U);
}

void AppendDynamicRows(const std::vector<Subject>& subjects, std::vector<PropertyRow>& rows) {
    for (const auto& attribute : subjects.front().object->CustomAttributes()) {
        const std::wstring& name = attribute.first;
        const bool allHaveIt = std::all_of(subjects.begin(), subjects.end(), [&](const Subject& subject) {
            return subject.object->CustomAttribute(name) != nullptr;
        });
        fw::ComPtr<IUnknown> property;
        if (!allHaveIt || FAILED(DynamicAttribute::Get(name, property))) {
            continue;
        }
        const DynamicAttributeKind& kind = KindOfAttribute(name);
        PropertyRow row{name, L"Data", kind.control, kind.type, FlagsOf(kind), {}};
        row.entries.reserve(subjects.size());
        for (const Subject& subject : subjects) {
            row.entries.push_back({subject.automation, property, DispidDynamic});
        }
        rows.push_back(std::move(row));
    }
}

}  // namespace

std::vector<PropertyRow> RowsOf(std::span<const KvDbObjectId> selection) {
    const std::vector<Subject> subjects = SubjectsOf(selection);
    std::vector<PropertyRow> rows;
    if (subjects.empty()) {
        return rows;
    }
    std::set<const PropertyTable*> tables;
    for (const Subject& subject : subjects) {
        tables.insert(subject.table);
    }
    for (const PropertyDescription& wanted : subjects.front().table->Rows()) {
        AppendTableRow(wanted, subjects, tables, rows);
    }
    AppendAttributeRows(subjects, rows);
    AppendDynamicRows(subjects, rows);
    for (PropertyRow& row : rows) {
        const std::wstring wanted = WantedControlOf(row.name);
        row.control = wanted.empty() ? row.control : wanted;
    }
    return rows;
}

std::wstring ClassNameOf(std::span<const KvDbObjectId> selection) {
    std::wstring name;
    for (const KvDbObjectId id : selection) {
        const Object* const object = Database::Peek(id);
        if (object == nullptr || (!name.empty() && name != object->ClassName())) {
            return {};
        }
        name = object->ClassName();
    }
    return name;
}

}  // namespace kvhost
