#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "host_sdk/KvDbObjectId.h"
#include "refhost/db/Bounds.h"
#include "refhost/db/DatabaseReactor.h"
#include "refhost/db/Point3.h"

namespace kvhost {
class Entity;
}

namespace kvpalette {

/// The shape of one entity, ready to be painted.
struct Shape {
    struct Path {
        std::vector<kvhost::Point3> points;
        bool closed = false;
    };
    struct Text {
        kvhost::Point3 position;
        double height = 0;
        double rotation = 0;
        double anchor = 0;
        std::wstring content;
    };

    KvDbObjectId id;
    kvhost::Bounds bounds;
    COLORREF color = 0;
    int lineweight = 0;  ///< in hundredths of a millimetre
    std::vector<Path> paths;
    std::vector<Text> texts;
    std::vector<kvhost::Point3> dots;
};

/// The shapes of what a drawing shows, kept up to date with its changes: a changed entity is shaped anew when
/// the list is next asked, a changed layer or block makes the whole list anew.
class DisplayList final : public kvhost::DatabaseReactor {
public:
    /// `onStale` is called at the first change after the list was asked, however many follow.
    explicit DisplayList(std::function<void()> onStale);
    ~DisplayList();
    DisplayList(const DisplayList&) = delete;
    DisplayList& operator=(const DisplayList&) = delete;

    /// The database is not owned; null for none.
    void SetDatabase(kvhost::Database* database);
    /// In the order of drawing.
    const std::vector<Shape>& Shapes();
    /// Null for an object that is not shown.
    const Shape* Find(KvDbObjectId id);
    kvhost::Bounds Extents();

    // kvhost::DatabaseReactor
    void ObjectAppended(const kvhost::Database& database, const kvhost::Object& object) override;
    void ObjectModified(const kvhost::Database& database, const kvhost::Object& object) override;
    void ObjectErased(const kvhost::Database& database, const kvhost::Object& object, bool erased) override;
    void DatabaseGone(const kvhost::Database& database) override;

private:
    void Note(const kvhost::Object& object, bool listChanges);
    void TellStale();
    void Update();
    void Rebuild();

    std::function<void()> m_onStale;
    kvhost::Database* m_database = nullptr;
    std::vector<Shape> m_shapes;
    std::unordered_map<std::uint64_t, std::size_t> m_indexOfHandle;
    std::unordered_set<std::uint64_t> m_changed;
    bool m_allChanged = true;
};

/// Colour of an entity on the drawing's dark ground.
[[nodiscard]] COLORREF ScreenColorOf(const kvhost::Entity& entity);

}  // namespace kvpalette
