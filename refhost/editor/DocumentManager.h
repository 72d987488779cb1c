#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host_sdk/KvApDocument.h"
#include "refhost/editor/Document.h"

namespace kvhost {

/// The open drawings; owns them. The first one that is opened is current until another is made so.
class KVHOST_API DocumentManager final : public KvApDocManager {
public:
    DocumentManager();
    DocumentManager(const DocumentManager&) = delete;
    DocumentManager& operator=(const DocumentManager&) = delete;
    ~DocumentManager();

    // KvApDocManager, with journal and faults.
    [[nodiscard]] KvApDocument* curDocument() const override;

    [[nodiscard]] Document* Current() const { return m_current; }
    void SetCurrent(Document* document) { m_current = document; }
    [[nodiscard]] std::vector<Document*> Documents() const;

    /// A new drawing without file.
    Document& New();
    /// Opens and makes current; null with the reason in `error`.
    Document* Open(const std::wstring& path, std::wstring& error);
    /// Closes without saving. The last of the others becomes current. False while an undo group is open in
    /// the drawing, which then stays: who began the group still holds its controller.
    bool Close(Document* document);
    /// Close for each; those that it leaves open stay.
    void CloseAll();

private:
    Document& Adopt(std::unique_ptr<Document> document);
    void Remove(Document& document);

    std::vector<std::unique_ptr<Document>> m_documents;
    Document* m_current = nullptr;
    int m_lastNumber = 0;
};

}  // namespace kvhost
