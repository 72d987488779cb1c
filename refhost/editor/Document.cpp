#include "refhost/editor/Document.h"

#include "refhost/db/DrawingFile.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

Document::Document(std::unique_ptr<Database> database, std::wstring path, std::wstring title)
    : m_database(std::move(database)),
      m_path(std::move(path)),
      m_title(std::move(title)),
      m_savedStamp(m_database->Undo().StateStamp()),
      m_selection(*m_database) {
}

Document::~Document() = default;

KvDbDatabase* Document::database() const {
    ServiceCall call(L"database");
    KvDbDatabase* const database = call.Fails() || m_closing ? nullptr : m_database.get();
    call.Returns(database != nullptr);
    return database;
}

bool Document::isQuiescent() const {
    ServiceCall call(L"isQuiescent");
    return call.Returns(!call.Fails() && m_quiescent);
}

bool Document::allowsLivePreview() const {
    ServiceCall call(L"allowsLivePreview");
    return call.Returns(!call.Fails() && AllowsLivePreview());
}

bool Document::AllowsLivePreview() const {
    const Host* const host = Host::Current();
    return m_quiescent && !m_closing && host != nullptr && !host->Editor().IsDragging();
}

Document* Document::Of(const KvDbDatabase* database) {
    Host* const host = Host::Current();
    if (host != nullptr && database != nullptr) {
        for (Document* const document : host->Documents().Documents()) {
            if (document->m_database.get() == database) {
                return document;
            }
        }
    }
    return nullptr;
}

std::wstring Document::Title() const {
    return IsTitled() ? m_path.substr(m_path.find_last_of(L"\\/") + 1) : m_title;
}

bool Document::IsDirty() const {
    return m_database->Undo().StateStamp() != m_savedStamp;
}

std::wstring Document::Save() {
    return IsTitled() ? SaveAs(m_path) : L"The drawing has no file yet.";
}

std::wstring Document::SaveAs(const std::wstring& path) {
    m_database->Undo().Preview().TakeBack();  // what is only shown is not saved
    std::wstring error = WriteDrawing(*m_database, path);
    if (error.empty()) {
        m_path = path;
        m_savedStamp = m_database->Undo().StateStamp();
    }
    return error;
}

}  // namespace kvhost
