#pragma once

// What the editor's header tool would write for MorvaneSettings.h, in the terms of the standalone editor.
#undef CURRENT_FILE_GENERATED_BODY
#define CURRENT_FILE_GENERATED_BODY EDITOR_CLASS(UMorvaneSettings, UObject)
