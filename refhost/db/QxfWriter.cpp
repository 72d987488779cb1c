#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/DrawingBuilder.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/JsonRecordWriter.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/QxfNames.h"

namespace kvhost {

namespace {

Json HeadOf(const Object& object) {
    Json record = Json::object();
    if (dynamic_cast<const Entity*>(&object) != nullptr && object.ClassName() != std::wstring(L"Attribute")) {
        record[QxfNames::type] = ToUtf8(object.ClassName());
    }
    record[QxfNames::handle] = ToUtf8(HandleText(object.Id().handle()));
    return record;
}

void AddFields(Json& record, const Object& object) {
    JsonRecordWriter writer(record);
    // Writers only look, though the visitor that they share with readers could change fields.
    const_cast<Object&>(object).VisitAllFields(writer);
}

/// Records of what `owner` owns, with what those own in turn under `nested`.
Json OwnedRecords(const Database& database, KvDbObjectId owner, const char* nested) {
    Json records = Json::array();
    for (const KvDbObjectId id : database.OwnedBy(owner)) {
        if (id == database.ModelSpaceId()) {
            continue;
        }
        const Object& object = *Database::Peek(id);
        Json record = HeadOf(object);
        AddFields(record, object);
        const bool hasEntities = dynamic_cast<const Block*>(&object) != nullptr;
        const char* const name = hasEntities ? QxfNames::entities : nested;
        Json inner = OwnedRecords(database, id, hasEntities ? QxfNames::attributes : nested);
        if (!inner.empty()) {
            record[name] = std::move(inner);
        }
        records.push_back(std::move(record));
    }
    return records;
}

/// One record a line, so that two versions of a drawing can be compared line by line.
void AppendSection(std::string& content, const char* name, const Json& records) {
    content += ",\n\"";
    content += name;
    content += "\": [";
    const char* separator = "\n";
    for (const Json& record : records) {
        content += separator;
        content += record.dump();
        separator = ",\n";
    }
    content += records.empty() ? "]" : "\n]";
}

}  // namespace

std::string QxfContent(const Database& database) {
    Json settings = Json::object();
    AddFields(settings, *Database::Peek(database.SettingsId()));
    std::string content = "{\n\"format\": \"qxf\",\n\"version\": 1,\n\"settings\": " + settings.dump();
    AppendSection(content, QxfNames::layers, OwnedRecords(database, database.LayerTableId(), ""));
    AppendSection(content, QxfNames::blocks,
                  OwnedRecords(database, database.BlockTableId(), QxfNames::entities));
    AppendSection(content, QxfNames::dictionaries,
                  OwnedRecords(database, database.NamedObjectsId(), QxfNames::dictionaries));
    AppendSection(content, QxfNames::entities,
                  OwnedRecords(database, database.ModelSpaceId(), QxfNames::attributes));
    content += "\n}\n";
    return content;
}

}  // namespace kvhost
