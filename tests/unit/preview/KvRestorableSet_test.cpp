#include "preview/KvRestorableSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "preview/KvRestorable.h"

namespace {

/// Notes its letter in lower case when restored, '-' when discarded, and in upper case when deleted.
class Noting final : public IKvRestorable {
public:
    Noting(std::string& log, char letter) : m_log(log), m_letter(letter) {}
    Noting(const Noting&) = delete;
    Noting& operator=(const Noting&) = delete;
    ~Noting() override { m_log += static_cast<char>(m_letter - 'a' + 'A'); }

    [[nodiscard]] bool IsUnchanged() const override { return false; }
    void Restore() override { m_log += m_letter; }
    void Discard() override { m_log += '-'; }
    [[nodiscard]] bool RefersTo(const void*) const override { return false; }

private:
    std::string& m_log;
    char m_letter;
};

TEST(KvRestorableSet, RestoreAll_RestoresAndDeletesEachInTheOrderOfAddresses) {
    std::string log;
    std::vector<std::unique_ptr<Noting>> made;
    for (int i = 0; i < 8; ++i) {
        made.push_back(std::make_unique<Noting>(log, static_cast<char>('a' + i)));
    }
    std::vector<std::pair<Noting*, char>> expected;
    for (std::size_t i = 0; i < made.size(); ++i) {
        expected.emplace_back(made[i].get(), static_cast<char>('a' + static_cast<int>(i)));
    }
    std::sort(expected.begin(), expected.end(),
              [](const auto& left, const auto& right) { return std::less<>()(left.first, right.first); });

    KvRestorableSet set;
    for (std::size_t i = made.size(); i > 0; --i) {
        set.Add(std::move(made[i - 1]));
    }
    set.RestoreAll();
    std::string wanted;
    for (const auto& [address, letter] : expected) {
        wanted += letter;
        wanted += static_cast<char>(letter - 'a' + 'A');
    }
    EXPECT_EQ(log, wanted);
    set.RestoreAll();
    EXPECT_EQ(log, wanted) << "the set is not empty after RestoreAll";
}

TEST(KvRestorableSet, DestroyedWithSomeLeft_DropsThemWithoutRestoring) {
    std::string log;
    {
        KvRestorableSet set;
        set.Add(std::make_unique<Noting>(log, 'a'));
    }
    EXPECT_EQ(log, "-A");
}

TEST(KvRestorableSet, NothingAdded_IsLeftOut) {
    KvRestorableSet set;
    set.Add(nullptr);
    set.RestoreAll();
}

TEST(KvRestorableSet, VariablesOfAControl_AreAllPutBack) {
    bool allowsUnspecified = true;
    int current = 3;
    KvRestorableSet set;
    set.Add(std::make_unique<KvRestorable<bool>>(allowsUnspecified));
    set.Add(std::make_unique<KvRestorable<int>>(current));
    allowsUnspecified = false;
    current = 9;
    set.RestoreAll();
    EXPECT_TRUE(allowsUnspecified);
    EXPECT_EQ(current, 3);
}

}  // namespace
