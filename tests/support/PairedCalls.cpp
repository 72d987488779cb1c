#include "tests/support/PairedCalls.h"

#include <map>

namespace kvtest {
namespace {

struct Pair {
    std::string_view opening;
    std::string_view closing;
};

constexpr Pair c_pairs[] = {
    {"undoGroup 8", "undoGroup 16"},
    {"OnBeginPropertyUpdate", "OnEndPropertyUpdate"},
    {"OnBeginModal", "OnEndModal"},
    {"kvedDisableUsrbrk", "kvedEnableUsrbrk"},
    {"kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
     "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW"},
    {"kvedSendModelessOperationStart ZRB_CHGPROP", "kvedSendModelessOperationEnded ZRB_CHGPROP"},
    {"kvedSendModelessOperationStart ZRB_CHGLAYER", "kvedSendModelessOperationEnded ZRB_CHGLAYER"},
};

}  // namespace

std::string DescribeUnpaired(const CallLines& calls) {
    std::map<std::string_view, int> open;
    for (const std::string& line : calls) {
        for (const Pair& pair : c_pairs) {
            if (line.starts_with(pair.opening)) {
                ++open[pair.opening];
                break;
            }
            if (line.starts_with(pair.closing)) {
                if (--open[pair.opening] < 0) {
                    return line + " without its beginning";
                }
                break;
            }
        }
    }
    for (const auto& [opening, count] : open) {
        if (count != 0) {
            return std::string(opening) + " without its end";
        }
    }
    return {};
}

}  // namespace kvtest
