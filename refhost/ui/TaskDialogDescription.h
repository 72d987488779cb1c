#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/Export.h"

namespace kvhost {

/// One message dialog as its resource describes it.
struct TaskDialogDescription {
    enum class Icon { None, Information, Warning, Error };

    struct Button {
        int id = 0;  ///< a dialog button's id, as IDOK
        std::wstring text;
    };

    std::wstring title;
    std::wstring instruction;
    std::wstring content;
    Icon icon = Icon::None;
    std::vector<Button> buttons;  ///< at least one
    int defaultButton = 0;
};

/// Reads the dialog with that id from the UTF-8 text of a task dialog resource. Nothing when the text is no
/// such resource, has no dialog of the id, or describes it wrongly.
[[nodiscard]] KVHOST_API std::optional<TaskDialogDescription> ParseTaskDialog(std::string_view resource,
                                                                              std::wstring_view dialogId);

/// The text of the host's resource at an address like "/Component;component/File.xaml"; empty when there is
/// none.
[[nodiscard]] KVHOST_API std::string_view FindTaskDialogResource(std::wstring_view address);

}  // namespace kvhost
