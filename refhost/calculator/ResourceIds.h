#pragma once

// Ids of the bridge library's resources; also read by the resource compiler, so plain numbers only.

#define KVBRIDGE_DIALOG_CALCULATOR 101

#define KVBRIDGE_FORMULA 1001
#define KVBRIDGE_RESULT 1002
#define KVBRIDGE_FIRST_KEY 1100
#define KVBRIDGE_LAST_KEY 1199
