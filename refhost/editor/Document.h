#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host_sdk/KvApDocument.h"
#include "refhost/db/Database.h"
#include "refhost/editor/Selection.h"

namespace kvhost {

/// An open drawing: its database, its file and its selection.
class KVHOST_API Document final : public KvApDocument {
public:
    /// `path` is empty for a drawing that has no file yet; it is called `title` then.
    Document(std::unique_ptr<Database> database, std::wstring path, std::wstring title);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document();

    // KvApDocument, with journal and faults.
    [[nodiscard]] KvDbDatabase* database() const override;
    [[nodiscard]] bool isQuiescent() const override;
    [[nodiscard]] bool allowsLivePreview() const override;

    /// The document of the host's that has this database; null when none has.
    [[nodiscard]] static Document* Of(const KvDbDatabase* database);

    [[nodiscard]] Database& GetDatabase() { return *m_database; }
    [[nodiscard]] const Database& GetDatabase() const { return *m_database; }
    [[nodiscard]] const std::wstring& Path() const { return m_path; }
    /// File name, or the title of a new drawing.
    [[nodiscard]] std::wstring Title() const;
    [[nodiscard]] bool IsTitled() const { return !m_path.empty(); }
    /// The drawing differs from what was last read or saved.
    [[nodiscard]] bool IsDirty() const;

    /// Saves to the file, or as `path`, which becomes the file. Gives the reason for the user, empty when
    /// done.
    [[nodiscard]] std::wstring Save();
    [[nodiscard]] std::wstring SaveAs(const std::wstring& path);

    [[nodiscard]] bool IsQuiescent() const { return m_quiescent; }
    void SetQuiescent(bool quiescent) { m_quiescent = quiescent; }
    [[nodiscard]] bool AllowsLivePreview() const;
    /// What `database()` gives plug-ins while the document is being closed is null.
    void SetClosing(bool closing) { m_closing = closing; }

    [[nodiscard]] Selection& GetSelection() { return m_selection; }

private:
    std::unique_ptr<Database> m_database;
    std::wstring m_path;
    std::wstring m_title;
    std::uint64_t m_savedStamp = 0;
    bool m_quiescent = true;
    bool m_closing = false;
    Selection m_selection;
};

}  // namespace kvhost
