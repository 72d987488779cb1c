#include "refhost/editor/DocumentManager.h"

#include <algorithm>

#include "refhost/db/DrawingFile.h"
#include "refhost/db/UndoController.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/LivePreview.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

DocumentManager::DocumentManager() = default;

DocumentManager::~DocumentManager() {
    while (!m_documents.empty()) {
        Remove(*m_documents.back());
    }
}

KvApDocument* DocumentManager::curDocument() const {
    ServiceCall call(L"curDocument");
    KvApDocument* const document = call.Fails() ? nullptr : m_current;
    call.Returns(document != nullptr);
    return document;
}

std::vector<Document*> DocumentManager::Documents() const {
    std::vector<Document*> documents;
    for (const std::unique_ptr<Document>& document : m_documents) {
        documents.push_back(document.get());
    }
    return documents;
}

Document& DocumentManager::New() {
    ++m_lastNumber;
    return Adopt(std::make_unique<Document>(std::make_unique<Database>(), std::wstring(),
                                            L"Drawing" + std::to_wstring(m_lastNumber)));
}

Document* DocumentManager::Open(const std::wstring& path, std::wstring& error) {
    DrawingReadResult result = ReadDrawing(path);
    error = result.error;
    if (result.database == nullptr) {
        return nullptr;
    }
    Document& document = Adopt(std::make_unique<Document>(std::move(result.database), path, std::wstring()));
    m_current = &document;
    return &document;
}

Document& DocumentManager::Adopt(std::unique_ptr<Document> document) {
    m_documents.push_back(std::move(document));
    if (m_current == nullptr) {
        m_current = m_documents.back().get();
    }
    return *m_documents.back();
}

bool DocumentManager::Close(Document* document) {
    const bool isOpen =
        std::ranges::any_of(m_documents, [&](const auto& open) { return open.get() == document; });
    if (!isOpen || document->GetDatabase().Undo().OpenGroups() > 0) {
        return false;
    }
    Remove(*document);
    return true;
}

void DocumentManager::CloseAll() {
    for (Document* const document : Documents()) {
        Close(document);
    }
}

void DocumentManager::Remove(Document& document) {
    const auto found =
        std::ranges::find_if(m_documents, [&](const auto& open) { return open.get() == &document; });
    Host* const host = Host::Current();
    if (host != nullptr && host->m_workingDatabase == &document.GetDatabase()) {
        host->m_workingDatabase = nullptr;
    }
    if (host != nullptr) {
        host->Preview().End(document);
    }
    document.SetClosing(true);
    const std::unique_ptr<Document> closing = std::move(*found);
    m_documents.erase(found);
    if (m_current == &document) {
        m_current = m_documents.empty() ? nullptr : m_documents.back().get();
    }
}

}  // namespace kvhost

KvApDocManager* kvDocManagerPtr() {
    kvhost::ServiceCall call(L"kvDocManagerPtr");
    kvhost::Host* const host = call.Fails() ? nullptr : kvhost::Host::Current();
    call.Returns(host != nullptr);
    return host != nullptr ? &host->Documents() : nullptr;
}
