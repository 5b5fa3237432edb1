#pragma once

#include "Components/ContentWidget.h"
#include "CoreMinimal.h"

/** The place that a user widget leaves open for whoever uses it. */
class UNamedSlot : public UContentWidget
{
	EDITOR_CLASS(UNamedSlot, UContentWidget)
};
