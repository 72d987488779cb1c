#pragma once

namespace kvhost {

class Database;
class Object;

/// Hears of the changes of all objects of a database. Not owned by it: detach before it dies.
class DatabaseReactor {
public:
    virtual void ObjectAppended(const Database& /*database*/, const Object& /*object*/) {}
    virtual void ObjectModified(const Database& /*database*/, const Object& /*object*/) {}
    virtual void ObjectErased(const Database& /*database*/, const Object& /*object*/, bool /*erased*/) {}
    /// The database is being destroyed; the reactor is detached already.
    virtual void DatabaseGone(const Database& /*database*/) {}

protected:
    ~DatabaseReactor() = default;
};

}  // namespace kvhost
