// The dialog that belongs to a row's property, launched on behalf of a palette that keeps a record of the
// row.

#include "refhost/testing/Answers.h"
#include "tests/control/proofs/FaultSweep.h"
#include "tests/support/FakeIdentifier.h"
#include "tests/support/LeakCheck.h"

namespace {

const kvtest::LeakCounter s_identifiers("identifiers", kvtest::FakeIdentifier::LiveCount);

class DialogSweep : public kvtest::FaultSweep {
protected:
    /// The texts that were shown, the dialog's own first.
    std::vector<std::wstring> Launch() {
        const auto identifier = kvtest::FakeIdentifier::Make();
        EXPECT_EQ(control->put_PropertyIdentifier(identifier.Get()), S_OK);
        Clear();
        kvhost::Answers::QueueText(scenario.after.text);
        EXPECT_EQ(control->LaunchDialog(fw::Bstr(scenario.before.text).Get(), 8), S_OK);
        EXPECT_CALLS(Events(), "OnBeginModal 8", "OnEndModal 8");
        if (kvhost::Answers::Waiting() > 0) {
            EXPECT_FALSE(isFaultFree) << "no dialog came";
            static_cast<void>(kvhost::Answers::Take({}));
        }
        return kvhost::Answers::TakeShown();
    }

    // By the number of objects that the dialog shows.
    [[nodiscard]] bool IsForAll() const {
        const kvtest::CallLines dialogs = kvtest::CallsOnly(journal, {"IPropertyDialogBy"});
        return dialogs.size() == 1 && dialogs.front().ends_with(" " + std::to_string(kvtest::c_sweptObjects));
    }
    void EditText() {
        if (Begin()) {
            const std::vector<std::wstring> shown = Launch();
            if (shown.size() != 1 || !IsForAll()) {
                NoteTold();  // no dialog comes, or it tells that it is for fewer, or another tells the rest
            }
            Complete();
        }
        ExpectWrittenOrReported();
    }
    void ReadNote() {
        if (Begin()) {
            static_cast<void>(Launch());
            if (isFaultFree) {
                EXPECT_CALLS(kvtest::CallsOnly(journal, {"AttributeNoteDialog"}), "AttributeNoteDialog");
            }
            Complete();
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
};

TEST_P(DialogSweep, EachServiceFails) {
    Sweep([this] { EditText(); });
}

class NoteDialogSweep : public DialogSweep {};

TEST_P(NoteDialogSweep, EachServiceFails) {
    Sweep([this] { ReadNote(); });
}

INSTANTIATE_TEST_SUITE_P(Classes, DialogSweep, ::testing::ValuesIn(kvtest::DialogRows()),
                         &kvtest::NameOfSweptRow);
INSTANTIATE_TEST_SUITE_P(Classes, NoteDialogSweep, ::testing::ValuesIn(kvtest::NoteDialogRows()),
                         &kvtest::NameOfSweptRow);

}  // namespace
