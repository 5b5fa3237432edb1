#pragma once

#include "Containers/UnrealString.h"
#include "Misc/OutputDevice.h"

/** Keeps what it is told, one line each. */
class FStringOutputDevice : public FString, public FOutputDevice
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		if (!IsEmpty())
		{
			AppendChar(TEXT('\n'));
		}
		*static_cast<FString*>(this) += Text;
	}
};
