#pragma once

namespace kvhost {

class Selection;

/// Hears when the picked objects change. Not owned by the selection: detach before it dies.
class SelectionObserver {
public:
    virtual void SelectionChanged(const Selection& selection) = 0;

protected:
    ~SelectionObserver() = default;
};

}  // namespace kvhost
