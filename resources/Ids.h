#pragma once

// Ids of the satellite's resources. Plain macros: the resource compiler reads this file too.

#define IDS_DIALOG_CLASS_NOT_REGISTERED 79
#define IDS_UNDO_PROPERTY_CHANGE 87
#define IDS_BOOL_TRUE 110
#define IDS_BOOL_FALSE 111
#define IDS_NO_EXPRESSION 192
#define IDS_VARIES_TEXT 228
#define IDS_UNSPECIFIED_TEXT 229
#define IDS_CALCULATOR_CAPTION 237
#define IDS_EXPRESSION_LABEL 290
#define IDS_ELEMENT_NOT_WRITTEN 291

// Stands for the picture of list entries that show none.
#define IDB_LIST_NO_PICTURE 65535

// Pictures of small buttons.
#define IDB_NO_EXPRESSION 173
#define IDB_MIXED_EXPRESSIONS 174
#define IDB_EXPRESSION 175
#define IDB_CALCULATOR 252
#define IDB_CALCULATOR_DISABLED 253
// Added to a picture's id, gives that of the same picture in double size.
#define IDB_DOUBLE_SIZE_OFFSET 1000
