#pragma once

// Ids of the host library's own resources; also read by the resource compiler, so plain numbers only.

#define KVHOST_DIALOG_MESSAGE 101
#define KVHOST_DIALOG_PROPERTY_TEXT 102

#define KVHOST_MESSAGE_ICON 1001
#define KVHOST_MESSAGE_INSTRUCTION 1002
#define KVHOST_MESSAGE_CONTENT 1003
#define KVHOST_PROPERTY_TEXT 1004
#define KVHOST_PROPERTY_OBJECTS 1005
