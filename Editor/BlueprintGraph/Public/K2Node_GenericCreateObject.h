#pragma once

#include "CoreMinimal.h"
#include "K2Node_ConstructObjectFromClass.h"

/** Makes an object that is no actor and no component. */
class UK2Node_GenericCreateObject : public UK2Node_ConstructObjectFromClass
{
	EDITOR_CLASS(UK2Node_GenericCreateObject, UK2Node_ConstructObjectFromClass)

public:
	bool UseWorldContext() const override { return false; }
	bool UseOuter() const override { return true; }
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
