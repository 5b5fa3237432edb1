#pragma once

#include "Containers/Array.h"
#include "Misc/OutputDevice.h"

/** Hands the log to all who listen. Warnings and worse reach the listeners even when standard error is to be silent. */
class FOutputDeviceRedirector
{
public:
	static FOutputDeviceRedirector* Get();

	/** The device has to be removed before it dies. */
	void AddOutputDevice(FOutputDevice* OutputDevice) { OutputDevices.AddUnique(OutputDevice); }
	void RemoveOutputDevice(FOutputDevice* OutputDevice) { OutputDevices.Remove(OutputDevice); }
	/** Lines reach the listeners at once here; where they wait, this hands them out. */
	void Flush() {}
	bool HasOutputDevices() const { return !OutputDevices.IsEmpty(); }
	void Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) const;

private:
	TArray<FOutputDevice*> OutputDevices;
};
