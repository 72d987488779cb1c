#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/DrawingBuilder.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/JsonRecordReader.h"
#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/ObjectState.h"
#include "refhost/db/QxfNames.h"

namespace kvhost {

namespace {

/// Dictionaries lie within each other, and each level takes some of the stack.
constexpr int c_deepestDictionary = 100;

/// Reads a document into a builder. Operations give the reason of a failure with its path, empty when all is
/// well.
class QxfReader {
public:
    std::wstring Read(const Json& document);
    std::unique_ptr<Database> Finish() { return m_builder.Finish(); }

private:
    using ReadElement = std::wstring (QxfReader::*)(const Json& record, const JsonPath& path,
                                                    KvDbObjectId owner);

    std::wstring ReadHead(const Json& document);
    std::wstring ReadSettings(const Json& document, const JsonPath& top);
    /// Reads each element of the array `name`, which may be missing.
    std::wstring ReadEach(const Json& parent, const JsonPath& path, const char* name, KvDbObjectId owner,
                          ReadElement readElement);
    std::wstring ReadLayer(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring ReadBlock(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring ReadContents(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring ReadDictionary(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring ReadEntity(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring ReadAttribute(const Json& record, const JsonPath& path, KvDbObjectId owner);
    std::wstring Add(std::unique_ptr<Object> object, const Json& record, const JsonPath& path,
                     KvDbObjectId owner, std::initializer_list<const char*> others, KvDbObjectId& id);

    DrawingBuilder m_builder;
    int m_dictionaryDepth = 0;
};

std::wstring QxfReader::Read(const Json& document) {
    const JsonPath top;
    Database& database = m_builder.GetDatabase();
    std::wstring failure = ReadHead(document);
    if (failure.empty()) {
        failure = ReadEach(document, top, QxfNames::layers, database.LayerTableId(), &QxfReader::ReadLayer);
    }
    if (failure.empty()) {
        failure = ReadSettings(document, top);
    }
    if (failure.empty()) {
        failure = ReadEach(document, top, QxfNames::blocks, database.BlockTableId(), &QxfReader::ReadBlock);
    }
    if (failure.empty()) {
        // Entities of blocks may refer to any block, so that they come when all blocks are there.
        failure = ReadEach(document, top, QxfNames::blocks, {}, &QxfReader::ReadContents);
    }
    if (failure.empty()) {
        failure = ReadEach(document, top, QxfNames::dictionaries, database.NamedObjectsId(),
                           &QxfReader::ReadDictionary);
    }
    if (failure.empty()) {
        failure =
            ReadEach(document, top, QxfNames::entities, database.ModelSpaceId(), &QxfReader::ReadEntity);
    }
    return failure;
}

std::wstring QxfReader::ReadHead(const Json& document) {
    const JsonPath top;
    if (!document.is_object()) {
        return L"/: an object is needed";
    }
    const Json* const format = FindMember(document, QxfNames::format);
    if (format == nullptr || *format != "qxf") {
        return L"/format: \"qxf\" is needed";
    }
    const Json* const version = FindMember(document, QxfNames::version);
    if (version == nullptr || *version != 1) {
        return L"/version: only version 1 is known";
    }
    JsonRecordReader reader(document, top, m_builder.GetDatabase());
    reader.RefuseOthers({QxfNames::format, QxfNames::version, QxfNames::settings, QxfNames::layers,
                         QxfNames::blocks, QxfNames::dictionaries, QxfNames::entities});
    return reader.Failure();
}

std::wstring QxfReader::ReadSettings(const Json& document, const JsonPath& top) {
    const Json* const record = FindMember(document, QxfNames::settings);
    if (record == nullptr) {
        return {};
    }
    const JsonPath path = top.Member(QxfNames::settings);
    if (!record->is_object()) {
        return path.Text() + L": an object is needed";
    }
    Object& settings = DrawingBuilder::At(m_builder.GetDatabase().SettingsId());
    JsonRecordReader reader(*record, path, m_builder.GetDatabase());
    settings.VisitAllFields(reader);
    reader.RefuseOthers({});
    const std::wstring complaint = settings.Complaint();
    if (!complaint.empty()) {
        reader.Fail(complaint);
    }
    return reader.Failure();
}

std::wstring QxfReader::ReadEach(const Json& parent, const JsonPath& path, const char* name,
                                 KvDbObjectId owner, ReadElement readElement) {
    const Json* const array = FindMember(parent, name);
    if (array == nullptr) {
        return {};
    }
    const JsonPath arrayPath = path.Member(name);
    if (!array->is_array()) {
        return arrayPath.Text() + L": an array is needed";
    }
    for (std::size_t i = 0; i < array->size(); ++i) {
        const JsonPath elementPath = arrayPath.Element(i);
        const Json& element = (*array)[i];
        if (!element.is_object()) {
            return elementPath.Text() + L": an object is needed";
        }
        std::wstring failure = (this->*readElement)(element, elementPath, owner);
        if (!failure.empty()) {
            return failure;
        }
    }
    return {};
}

std::wstring QxfReader::Add(std::unique_ptr<Object> object, const Json& record, const JsonPath& path,
                            KvDbObjectId owner, std::initializer_list<const char*> others, KvDbObjectId& id) {
    JsonRecordReader reader(record, path, m_builder.GetDatabase());
    object->VisitAllFields(reader);
    reader.RefuseOthers(others);
    std::uint64_t handle = 0;
    if (const Json* const text = FindMember(record, QxfNames::handle)) {
        handle =
            text->is_string() ? DrawingBuilder::HandleOf(FromUtf8(text->get_ref<const std::string&>())) : 0;
        if (handle == 0) {
            reader.Fail(L"handle: a text of hexadecimal digits is needed");
        }
    }
    if (reader.Failure().empty()) {
        const std::wstring failure = m_builder.Add(std::move(object), handle, owner, id);
        if (!failure.empty()) {
            reader.Fail(failure);
        }
    }
    return reader.Failure();
}

std::wstring QxfReader::ReadLayer(const Json& record, const JsonPath& path, KvDbObjectId owner) {
    KvDbObjectId id;
    return Add(std::make_unique<Layer>(), record, path, owner, {QxfNames::handle}, id);
}

std::wstring QxfReader::ReadBlock(const Json& record, const JsonPath& path, KvDbObjectId owner) {
    KvDbObjectId id;
    return Add(std::make_unique<Block>(), record, path, owner, {QxfNames::handle, QxfNames::entities}, id);
}

std::wstring QxfReader::ReadContents(const Json& record, const JsonPath& path, KvDbObjectId /*owner*/) {
    // The first pass has checked the record, so that the name is there.
    const std::wstring name = FromUtf8(record.at("name").get_ref<const std::string&>());
    const KvDbObjectId block = m_builder.GetDatabase().BlockNamed(name);
    return ReadEach(record, path, QxfNames::entities, block, &QxfReader::ReadEntity);
}

std::wstring QxfReader::ReadDictionary(const Json& record, const JsonPath& path, KvDbObjectId owner) {
    if (m_dictionaryDepth == c_deepestDictionary) {
        return path.Text() + L": dictionaries lie too deep within each other";
    }
    KvDbObjectId id;
    std::wstring failure = Add(std::make_unique<Dictionary>(), record, path, owner,
                               {QxfNames::handle, QxfNames::dictionaries}, id);
    if (failure.empty()) {
        ++m_dictionaryDepth;
        failure = ReadEach(record, path, QxfNames::dictionaries, id, &QxfReader::ReadDictionary);
        --m_dictionaryDepth;
    }
    return failure;
}

std::wstring QxfReader::ReadEntity(const Json& record, const JsonPath& path, KvDbObjectId owner) {
    const Json* const type = FindMember(record, QxfNames::type);
    const std::wstring className =
        type != nullptr && type->is_string() ? FromUtf8(type->get_ref<const std::string&>()) : std::wstring();
    std::unique_ptr<Object> object = MakeObject(className);
    if (dynamic_cast<Entity*>(object.get()) == nullptr || dynamic_cast<Attribute*>(object.get()) != nullptr) {
        return path.Member(QxfNames::type).Text() + L": no class of entities is called '" + className + L"'";
    }
    const bool hasAttributes = className == L"BlockReference";
    KvDbObjectId id;
    std::wstring failure =
        hasAttributes ? Add(std::move(object), record, path, owner,
                            {QxfNames::type, QxfNames::handle, QxfNames::attributes}, id)
                      : Add(std::move(object), record, path, owner, {QxfNames::type, QxfNames::handle}, id);
    if (failure.empty() && hasAttributes) {
        failure = ReadEach(record, path, QxfNames::attributes, id, &QxfReader::ReadAttribute);
    }
    return failure;
}

std::wstring QxfReader::ReadAttribute(const Json& record, const JsonPath& path, KvDbObjectId owner) {
    KvDbObjectId id;
    return Add(std::make_unique<Attribute>(), record, path, owner, {QxfNames::handle}, id);
}

}  // namespace

DrawingReadResult ReadQxf(std::string_view content) {
    DrawingReadResult result;
    Json document;
    if (!ParseJson(content, document, result.error)) {
        return result;
    }
    QxfReader reader;
    result.error = reader.Read(document);
    if (result.error.empty()) {
        result.database = reader.Finish();
    }
    return result;
}

}  // namespace kvhost
