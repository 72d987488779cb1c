#pragma once

namespace kvhost {

class Object;

/// Hears of the changes of the objects that it is attached to. Not owned by them: detach before it dies.
class ObjectReactor {
public:
    /// The first change of an open is about to happen; the object still has its old state.
    virtual void OpenedForModify(const Object& /*object*/) {}
    /// An open with changes was closed, a part of the object changed, or undo changed it.
    virtual void Modified(const Object& /*object*/) {}
    /// A part of the object, as a record of a table, changed, came or went.
    virtual void PartModified(const Object& object, const Object& /*part*/) { Modified(object); }
    /// Undo, redo or the end of a preview changed the object; Modified follows.
    virtual void Undone(const Object& /*object*/) {}
    /// Erased, or (`erased` false) brought back.
    virtual void Erased(const Object& /*object*/, bool /*erased*/) {}
    /// The object is being destroyed with its database; the reactor is detached already.
    virtual void Gone(const Object& /*object*/) {}

protected:
    ~ObjectReactor() = default;
};

}  // namespace kvhost
