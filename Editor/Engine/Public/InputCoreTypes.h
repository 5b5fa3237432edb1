#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/Object.h"

/** A key, button or axis of an input device, by its name. In text it is the bare name. */
struct FKey
{
	EDITOR_STRUCT(FKey)

	FKey() = default;
	FKey(const FName InName)
		: KeyName(InName)
	{
	}
	FName GetFName() const { return KeyName; }
	FString ToString() const { return KeyName.ToString(); }
	bool IsValid() const { return !KeyName.IsNone(); }
	/** "Left Mouse Button", "Space Bar". */
	FText GetDisplayName(bool bLongDisplayName = true) const;
	/** Whether the value is a number and not just pressed or let go. */
	bool IsAxis1D() const;
	bool IsAxis2D() const;
	bool IsAxis3D() const;
	bool IsGamepadKey() const;
	/** Buttons, wheel and movement of the mouse. */
	bool IsMouseButton() const;
	/** "Gamepad", "Mouse" or, for all that is neither, "Keyboard": below which menus list the key. */
	FName GetMenuCategory() const;
	/** All keys of keyboard, mouse, gamepad and touch screen. */
	static const TArray<FKey>& GetAllKeys();
	bool ExportTextItem(
		FString& ValueStr, const FKey& DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const;
	bool ImportTextItem(const TCHAR*& Buffer, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText);
	bool operator==(const FKey& Other) const { return KeyName == Other.KeyName; }

	FName KeyName;
};
