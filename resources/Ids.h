#pragma once

// Ids of the satellite's resources. Plain macros: the resource compiler reads this file too.

#define IDS_DIALOG_CLASS_NOT_REGISTERED 79
#define IDS_UNDO_PROPERTY_CHANGE 87
#define IDS_BOOL_TRUE 110
#define IDS_BOOL_FALSE 111
#define IDS_VARIES_TEXT 228
#define IDS_UNSPECIFIED_TEXT 229
#define IDS_ELEMENT_NOT_WRITTEN 291

// Stands for the picture of list entries that show none.
#define IDB_LIST_NO_PICTURE 65535
