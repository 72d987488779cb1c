#include "refhost/ui/TaskDialogDescription.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/ptree.hpp>
#include <boost/property_tree/xml_parser.hpp>
#include <sstream>

#include "framework/base/ModuleState.h"
#include "framework/base/WindowsApi.h"

namespace kvhost {

namespace {

using Tree = boost::property_tree::ptree;

template <class Value>
struct NamedValue {
    std::string_view name;
    Value value;
};

constexpr std::array c_icons{
    NamedValue<TaskDialogDescription::Icon>{"None", TaskDialogDescription::Icon::None},
    NamedValue<TaskDialogDescription::Icon>{"Information", TaskDialogDescription::Icon::Information},
    NamedValue<TaskDialogDescription::Icon>{"Warning", TaskDialogDescription::Icon::Warning},
    NamedValue<TaskDialogDescription::Icon>{"Error", TaskDialogDescription::Icon::Error},
};

constexpr std::array c_buttonIds{
    NamedValue<int>{"OK", IDOK}, NamedValue<int>{"Cancel", IDCANCEL}, NamedValue<int>{"Yes", IDYES},
    NamedValue<int>{"No", IDNO}, NamedValue<int>{"Retry", IDRETRY},   NamedValue<int>{"Close", IDCLOSE},
};

template <class Value, std::size_t Count>
std::optional<Value> Find(const std::array<NamedValue<Value>, Count>& values, std::string_view name) {
    const auto found =
        std::find_if(values.begin(), values.end(), [&](const auto& entry) { return entry.name == name; });
    return found == values.end() ? std::nullopt : std::optional(found->value);
}

std::wstring FromUtf8(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size);
    return result;
}

std::string Attribute(const Tree& element, const char* name) {
    return element.get<std::string>(std::string("<xmlattr>.") + name, {});
}

std::wstring TextAttribute(const Tree& element, const char* name) {
    return FromUtf8(Attribute(element, name));
}

bool ReadButton(const Tree& element, TaskDialogDescription& dialog) {
    const std::optional<int> id = Find(c_buttonIds, Attribute(element, "Id"));
    if (!id) {
        return false;
    }
    dialog.buttons.push_back({*id, TextAttribute(element, "Text")});
    if (Attribute(element, "IsDefault") == "true") {
        dialog.defaultButton = *id;
    }
    return true;
}

std::optional<TaskDialogDescription> ReadDialog(const Tree& element) {
    TaskDialogDescription dialog;
    dialog.title = TextAttribute(element, "Title");
    dialog.instruction = TextAttribute(element, "MainInstruction");
    dialog.content = TextAttribute(element, "Content");
    const std::string iconName = Attribute(element, "Icon");
    const auto icon = Find(c_icons, iconName.empty() ? "None" : iconName);
    if (!icon) {
        return std::nullopt;
    }
    dialog.icon = *icon;
    for (const auto& [name, child] : element) {
        if (name == "Button" && !ReadButton(child, dialog)) {
            return std::nullopt;
        }
    }
    if (dialog.buttons.empty()) {
        return std::nullopt;
    }
    if (dialog.defaultButton == 0) {
        dialog.defaultButton = dialog.buttons.front().id;
    }
    return dialog;
}

// The parser tells of damaged text by an exception.
std::optional<Tree> ParseXml(std::string_view text) {
    try {
        std::istringstream stream{std::string(text)};
        Tree tree;
        boost::property_tree::read_xml(stream, tree);
        return tree;
    } catch (const boost::property_tree::xml_parser_error&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<TaskDialogDescription> ParseTaskDialog(std::string_view resource, std::wstring_view dialogId) {
    const std::optional<Tree> tree = ParseXml(resource);
    const auto root = tree ? tree->get_child_optional("TaskDialogs") : boost::none;
    if (!root) {
        return std::nullopt;
    }
    for (const auto& [name, child] : *root) {
        if (name == "TaskDialog" && TextAttribute(child, "Id") == dialogId) {
            return ReadDialog(child);
        }
    }
    return std::nullopt;
}

std::string_view FindTaskDialogResource(std::wstring_view address) {
    if (address.empty() || address.front() != L'/') {
        return {};
    }
    const std::wstring name(address.substr(1));
    HINSTANCE const module = fw::ThisModule();
    HRSRC const found = ::FindResourceW(module, name.c_str(), RT_RCDATA);
    HGLOBAL const loaded = found != nullptr ? ::LoadResource(module, found) : nullptr;
    const auto* const data = loaded != nullptr ? static_cast<const char*>(::LockResource(loaded)) : nullptr;
    return data != nullptr ? std::string_view(data, ::SizeofResource(module, found)) : std::string_view();
}

}  // namespace kvhost
