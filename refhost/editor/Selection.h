#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

class Database;
class SelectionObserver;

/// The picked objects of a document (pick-first set) and those of them that show grips (grip set).
class KVHOST_API Selection {
public:
    explicit Selection(Database& database);
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection();

    /// Picked objects that are not erased, in the order of picking.
    [[nodiscard]] std::vector<KvDbObjectId> PickFirst() const;
    [[nodiscard]] std::vector<KvDbObjectId> Gripped() const;
    [[nodiscard]] bool IsEmpty() const { return PickFirst().empty(); }

    /// The user's pick: grips come up unless GRIPS is 0 or there are more objects than GRIPOBJLIMIT (0: any
    /// number). Ids that occur twice, are erased or are no entities of the drawing are left out.
    void Pick(const std::vector<KvDbObjectId>& ids);
    /// What modules set: grips come up for `gripSet` whatever its size, unless GRIPS is 0.
    void Set(const std::vector<KvDbObjectId>& gripSet, const std::vector<KvDbObjectId>& pickFirst);
    void Clear() { Pick({}); }

    /// Objects whose grips were computed since the start of the document; costs time for large selections.
    [[nodiscard]] std::size_t GripComputations() const { return m_gripComputations; }

    /// Adds to the picked objects what `criterion` names: "all" (of the model space), "none" (clears),
    /// handles "1A,2B", "class=Circle", "layer=Walls". Gives the reason for the user when it names nothing
    /// that exists, and picks nothing then; empty when done.
    [[nodiscard]] std::wstring Select(std::wstring_view criterion);
    /// What a criterion names, without picking it; `error` is empty when it is understood.
    [[nodiscard]] std::vector<KvDbObjectId> Find(std::wstring_view criterion, std::wstring& error) const;

    void AddObserver(SelectionObserver* observer);
    void RemoveObserver(SelectionObserver* observer);

private:
    [[nodiscard]] std::vector<KvDbObjectId> Cleaned(const std::vector<KvDbObjectId>& ids) const;
    void ComputeGrips(const std::vector<KvDbObjectId>& ids);
    void NotifyChanged();

    Database& m_database;
    std::vector<KvDbObjectId> m_pickFirst;
    std::vector<KvDbObjectId> m_gripped;
    std::size_t m_gripComputations = 0;
    std::vector<SelectionObserver*> m_observers;
};

}  // namespace kvhost
