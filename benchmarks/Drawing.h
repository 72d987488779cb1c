#pragma once

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/CKvPeCtrlBase.h"
#include "framework/com/Variant.h"
#include "refhost/editor/Document.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Journal.h"

namespace kvbench {

/// Ends the run: a workload that did not do what it is timed for has no figure.
inline void Require(bool condition, const char* what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}

/// A host with one drawing of texts. All share their content, their rotation and the attribute "Label"; the
/// second one alone has another height.
class Drawing {
public:
    explicit Drawing(int count);
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing();

    [[nodiscard]] const std::vector<fw::ComPtr<IDispatch>>& Objects() const { return m_objects; }
    [[nodiscard]] IUnknown* Label() const { return m_label.Get(); }
    [[nodiscard]] long ContentId() const { return m_contentId; }
    [[nodiscard]] long HeightId() const { return m_heightId; }
    /// A number that all share.
    [[nodiscard]] long RotationId() const { return m_rotationId; }
    static constexpr double c_rotation = 0.5;

    /// Gives the control the first `count` objects; with DISPID_DYNAMIC their label.
    void Select(CKvPeCtrlBase& control, int count, long dispid) const;
    /// Undo would else grow from write to write.
    void ForgetUndo();

private:
    kvhost::HostSession m_host;
    kvhost::Document& m_document;
    std::vector<fw::ComPtr<IDispatch>> m_objects;
    fw::ComPtr<IUnknown> m_label;
    long m_contentId = 0;
    long m_heightId = 0;
    long m_rotationId = 0;
};

/// Fails unless both make the same host calls with the same arguments in the same order.
template <class Product, class Floor>
void RequireSameCalls(Product product, Floor floor, const char* workload) {
    const auto linesOf = [](auto& run) {
        kvhost::Journal journal;
        run();
        std::vector<std::wstring> lines;
        for (const kvhost::JournalEntry& entry : journal.Entries()) {
            lines.push_back(entry.Line());
        }
        return lines;
    };
    const std::vector<std::wstring> made = linesOf(product);
    const std::vector<std::wstring> expected = linesOf(floor);
    if (made.empty() || made != expected) {
        const auto [first, second] =
            std::mismatch(made.begin(), made.end(), expected.begin(), expected.end());
        std::fprintf(stderr, "%s: row and floor make different host calls: \"%ls\" and \"%ls\"\n", workload,
                     first != made.end() ? first->c_str() : L"",
                     second != expected.end() ? second->c_str() : L"");
        throw std::runtime_error(workload);
    }
}

}  // namespace kvbench
