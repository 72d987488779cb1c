#include <utility>

#include "refhost/db/DrawingBuilder.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/ObjectState.h"
#include "refhost/db/QdfFormat.h"
#include "refhost/db/RecordReader.h"
#include "refhost/db/RecordWriter.h"

namespace kvhost {

namespace {

void AppendBlock(std::string& file, const std::string& content) {
    RecordWriter writer(file);
    const auto length = static_cast<std::uint32_t>(content.size());
    writer.Raw(length);
    writer.Raw(QdfFormat::CheckSum(length, content));
    file += content;
}

void AppendObject(std::string& file, std::uint32_t& count, const Object& object) {
    std::string content;
    RecordWriter writer(content);
    writer.RawText(object.ClassName());
    writer.Raw(object.Id().handle());
    writer.Raw(object.OwnerId().handle());
    content += FieldsOfState(StateOf(object));
    AppendBlock(file, content);
    ++count;
}

/// What is owned comes after its owner; what others refer to comes before them.
void AppendOwned(std::string& file, std::uint32_t& count, const Database& database, KvDbObjectId owner,
                 bool withContents) {
    for (const KvDbObjectId id : database.OwnedBy(owner)) {
        if (id != database.ModelSpaceId()) {
            AppendObject(file, count, *Database::Peek(id));
            if (withContents) {
                AppendOwned(file, count, database, id, true);
            }
        }
    }
}

class QdfReader {
public:
    explicit QdfReader(std::string_view file) : m_file(file) {}

    /// Gives the reason with its byte offset, empty when all is well.
    std::wstring Read();
    std::unique_ptr<Database> Finish() { return m_builder.Finish(); }

private:
    std::wstring ReadBlock(bool& isLast);
    std::wstring ReadObject(std::string_view content);
    std::wstring Offset(const std::wstring& reason) const {
        return L"byte " + std::to_wstring(m_position) + L": " + reason;
    }

    DrawingBuilder m_builder;
    std::string_view m_file;
    std::size_t m_position = 0;
    std::uint32_t m_count = 0;
    bool m_hasSettings = false;
};

std::wstring QdfReader::Read() {
    if (!m_file.starts_with(QdfFormat::head)) {
        return Offset(L"the file does not begin as a drawing of this version does");
    }
    m_position = QdfFormat::head.size();
    bool isLast = false;
    while (!isLast) {
        std::wstring failure = ReadBlock(isLast);
        if (!failure.empty()) {
            return failure;
        }
    }
    return m_position == m_file.size() ? std::wstring() : Offset(L"something follows the end of the drawing");
}

std::wstring QdfReader::ReadBlock(bool& isLast) {
    const std::string_view rest = m_file.substr(m_position);
    if (rest.size() < QdfFormat::blockHead) {
        return Offset(L"the file ends before the drawing does");
    }
    RecordReader head(rest.substr(0, QdfFormat::blockHead), m_builder.GetDatabase());
    const auto length = head.Raw<std::uint32_t>();
    const auto checkSum = head.Raw<std::uint32_t>();
    if (length > rest.size() - QdfFormat::blockHead) {
        return Offset(L"the file ends before the drawing does");
    }
    const std::string_view content = rest.substr(QdfFormat::blockHead, length);
    if (QdfFormat::CheckSum(length, content) != checkSum) {
        return Offset(L"the check sum of the block is wrong");
    }
    isLast = length == sizeof(std::uint32_t);
    if (isLast) {
        RecordReader end(content, m_builder.GetDatabase());
        if (end.Raw<std::uint32_t>() != m_count) {
            return Offset(L"blocks are missing");
        }
    } else {
        const std::wstring failure = ReadObject(content);
        if (!failure.empty()) {
            return Offset(failure);
        }
        ++m_count;
    }
    m_position += QdfFormat::blockHead + length;
    return {};
}

std::wstring QdfReader::ReadObject(std::string_view content) {
    Database& database = m_builder.GetDatabase();
    RecordReader reader(content, database);
    const std::wstring className = reader.RawText();
    const auto handle = reader.Raw<std::uint64_t>();
    const auto ownerHandle = reader.Raw<std::uint64_t>();
    const KvDbObjectId owner = database.IdOf(ownerHandle);
    if (!reader.Failure().empty()) {
        return reader.Failure();
    }
    const bool isSettings = handle == database.SettingsId().handle();
    if (isSettings && (ownerHandle != 0 || std::exchange(m_hasSettings, true))) {
        return L"the settings can't be here";
    }
    std::unique_ptr<Object> added = isSettings ? nullptr : MakeObject(className);
    Object* const object = isSettings ? &DrawingBuilder::At(database.SettingsId()) : added.get();
    if (object == nullptr || className != object->ClassName()) {
        return L"there is no class '" + className + L"'";
    }
    object->VisitAllFields(reader);
    if (!reader.Failure().empty()) {
        return reader.Failure();
    }
    if (!reader.IsAtEnd()) {
        return L"the record is too long";
    }
    if (isSettings) {
        return object->Complaint();
    }
    if (handle < DrawingBuilder::c_firstHandle || handle > DrawingBuilder::c_lastHandle) {
        return L"the handle " + HandleText(handle) + L" can't be";
    }
    KvDbObjectId id;
    return m_builder.Add(std::move(added), handle, owner, id);
}

}  // namespace

std::string QdfContent(const Database& database) {
    std::string file(QdfFormat::head);
    std::uint32_t count = 0;
    AppendOwned(file, count, database, database.LayerTableId(), false);
    AppendObject(file, count, *Database::Peek(database.SettingsId()));
    AppendOwned(file, count, database, database.BlockTableId(), false);
    for (const KvDbObjectId block : database.OwnedBy(database.BlockTableId())) {
        AppendOwned(file, count, database, block, true);
    }
    AppendOwned(file, count, database, database.NamedObjectsId(), true);
    std::string end;
    RecordWriter(end).Raw(count);
    AppendBlock(file, end);
    return file;
}

DrawingReadResult ReadQdf(std::string_view content) {
    DrawingReadResult result;
    QdfReader reader(content);
    result.error = reader.Read();
    if (result.error.empty()) {
        result.database = reader.Finish();
    }
    return result;
}

}  // namespace kvhost
