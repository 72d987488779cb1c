#pragma once

namespace kvhost {

/// Dialog procedure of the inspection attribute: shows what an inspection note is to contain. Journalled as
/// "AttributeNoteDialog"; answered like a message box.
void ShowAttributeNoteDialog();

}  // namespace kvhost
