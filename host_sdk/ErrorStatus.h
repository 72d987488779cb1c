#pragma once

namespace Tolm {

/// Status of the host's database operations. The host also throws it as an exception from its editability
/// question.
enum ErrorStatus : int {
    eOk = 0,
    eInvalidInput = 3,
    eNotInDatabase = 4,
    eOutOfMemory = 6,
    eNullObjectId = 12,
    eNotOpenForWrite = 16,
    eNotOpenForRead = 17,
    eWasOpenForWrite = 18,
    eWasOpenForRead = 19,
    eKeyNotFound = 22,
    eDuplicateKey = 23,
    eOnLockedLayer = 32,
    eUnknownHandle = 62,
    eWasErased = 80,
    eNotThatKindOfClass = 102,
    eNotAllowed = 103,
};

}  // namespace Tolm
