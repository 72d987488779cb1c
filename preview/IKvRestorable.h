#pragma once

/// A variable of a control, saved while a preview writes. Its set owns it. The order of the operations is
/// fixed.
class IKvRestorable {
public:
    /// The variable still has the value that was saved.
    [[nodiscard]] virtual bool IsUnchanged() const = 0;
    /// Puts the saved value back, at the first call.
    virtual void Restore() = 0;
    /// The saved value is done with: nothing is put back any more.
    virtual void Discard() = 0;
    [[nodiscard]] virtual bool RefersTo(const void* variable) const = 0;
    virtual ~IKvRestorable() = default;
};
