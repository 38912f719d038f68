#pragma once

#include "platform/runtime/Prompts.h"

/// Message boxes on the screen.
class SystemPrompts : public Prompts {
public:
    PromptAnswer Show(const Prompt& prompt) override;
};
