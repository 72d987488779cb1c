#pragma once

/// Answers the host's message to the module; returns 0.
unsigned AnswerHostMessage(unsigned message, void* packet);
