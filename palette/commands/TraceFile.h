#pragma once

#include <memory>
#include <string>

#include "framework/base/Handles.h"
#include "refhost/testing/Journal.h"

namespace kvpalette {

/// Writes the journal into a file, one JSON line per call and event. Journalling begins with Open.
class TraceFile {
public:
    [[nodiscard]] bool Open(const std::wstring& path);
    bool IsOpen() const { return m_journal != nullptr; }
    /// Writes what came since the last call. False when the file cannot be written.
    [[nodiscard]] bool Write();

private:
    fw::UniqueFile m_file;
    std::unique_ptr<kvhost::Journal> m_journal;
};

}  // namespace kvpalette
