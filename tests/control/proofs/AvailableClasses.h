#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "KvPEXCtl_h.h"

namespace kvtest {

/// One available class, as every proof takes it.
struct AvailableClass {
    const char* name;
    const CLSID* id;
};

#define KV_PROOF_CLASS(coclassName)        \
    AvailableClass {                       \
#coclassName, &CLSID_##coclassName \
    }

/// A class that becomes available joins all proofs by its row here.
inline const AvailableClass c_availableClasses[] = {
    KV_PROOF_CLASS(KvPePropertyEditorText),
    KV_PROOF_CLASS(KvPePropertyEditorPwdText),
};

#undef KV_PROOF_CLASS

inline void PrintTo(const AvailableClass& row, std::ostream* stream) {
    *stream << row.name;
}

inline std::string ClassTestName(const ::testing::TestParamInfo<AvailableClass>& info) {
    return info.param.name;
}

}  // namespace kvtest

/// Runs a suite once for each available class.
#define KV_FOR_EACH_AVAILABLE_CLASS(suite)                                                      \
    INSTANTIATE_TEST_SUITE_P(Classes, suite, ::testing::ValuesIn(::kvtest::c_availableClasses), \
                             &::kvtest::ClassTestName)
