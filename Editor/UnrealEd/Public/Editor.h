#pragma once

#include "CoreMinimal.h"

/** The editor as an application: its windows and what else exists once. */
class UEditorEngine
{
public:
	template <class TSubsystem>
	TSubsystem* GetEditorSubsystem() const
	{
		return nullptr;
	}
};

/** Null where no editor application runs, which here is always: there are no windows. Callers check it. */
extern UEditorEngine* GEditor;
