// The events of keys, buttons and axes.

#include "Menu/ActionSources.h"

#include "BlueprintNodeSpawner.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
namespace InputKeys
{
struct FKeyRow
{
	const TCHAR* Name;
	/** Null: the name made readable. */
	const TCHAR* Shown;
};

const FKeyRow Mouse[] = {{TEXT("LeftMouseButton"), nullptr}, {TEXT("RightMouseButton"), nullptr},
	{TEXT("MiddleMouseButton"), nullptr}, {TEXT("ThumbMouseButton"), nullptr},
	{TEXT("ThumbMouseButton2"), TEXT("Thumb Mouse Button 2")}, {TEXT("MouseScrollUp"), TEXT("Mouse Wheel Up")},
	{TEXT("MouseScrollDown"), TEXT("Mouse Wheel Down")}};

const FKeyRow Keyboard[] = {{TEXT("A"), nullptr}, {TEXT("B"), nullptr}, {TEXT("C"), nullptr}, {TEXT("D"), nullptr},
	{TEXT("E"), nullptr}, {TEXT("F"), nullptr}, {TEXT("G"), nullptr}, {TEXT("H"), nullptr}, {TEXT("I"), nullptr},
	{TEXT("J"), nullptr}, {TEXT("K"), nullptr}, {TEXT("L"), nullptr}, {TEXT("M"), nullptr}, {TEXT("N"), nullptr},
	{TEXT("O"), nullptr}, {TEXT("P"), nullptr}, {TEXT("Q"), nullptr}, {TEXT("R"), nullptr}, {TEXT("S"), nullptr},
	{TEXT("T"), nullptr}, {TEXT("U"), nullptr}, {TEXT("V"), nullptr}, {TEXT("W"), nullptr}, {TEXT("X"), nullptr},
	{TEXT("Y"), nullptr}, {TEXT("Z"), nullptr}, {TEXT("Zero"), TEXT("0")}, {TEXT("One"), TEXT("1")},
	{TEXT("Two"), TEXT("2")}, {TEXT("Three"), TEXT("3")}, {TEXT("Four"), TEXT("4")}, {TEXT("Five"), TEXT("5")},
	{TEXT("Six"), TEXT("6")}, {TEXT("Seven"), TEXT("7")}, {TEXT("Eight"), TEXT("8")}, {TEXT("Nine"), TEXT("9")},
	{TEXT("NumPadZero"), TEXT("Num 0")}, {TEXT("NumPadOne"), TEXT("Num 1")}, {TEXT("NumPadTwo"), TEXT("Num 2")},
	{TEXT("NumPadThree"), TEXT("Num 3")}, {TEXT("NumPadFour"), TEXT("Num 4")}, {TEXT("NumPadFive"), TEXT("Num 5")},
	{TEXT("NumPadSix"), TEXT("Num 6")}, {TEXT("NumPadSeven"), TEXT("Num 7")}, {TEXT("NumPadEight"), TEXT("Num 8")},
	{TEXT("NumPadNine"), TEXT("Num 9")}, {TEXT("Multiply"), TEXT("Num *")}, {TEXT("Add"), TEXT("Num +")},
	{TEXT("Subtract"), TEXT("Num -")}, {TEXT("Decimal"), TEXT("Num .")}, {TEXT("Divide"), TEXT("Num /")},
	{TEXT("F1"), nullptr}, {TEXT("F2"), nullptr}, {TEXT("F3"), nullptr}, {TEXT("F4"), nullptr}, {TEXT("F5"), nullptr},
	{TEXT("F6"), nullptr}, {TEXT("F7"), nullptr}, {TEXT("F8"), nullptr}, {TEXT("F9"), nullptr}, {TEXT("F10"), nullptr},
	{TEXT("F11"), nullptr}, {TEXT("F12"), nullptr}, {TEXT("BackSpace"), TEXT("Backspace")}, {TEXT("Tab"), nullptr},
	{TEXT("Enter"), nullptr}, {TEXT("Pause"), nullptr}, {TEXT("CapsLock"), nullptr}, {TEXT("Escape"), nullptr},
	{TEXT("SpaceBar"), nullptr}, {TEXT("PageUp"), nullptr}, {TEXT("PageDown"), nullptr}, {TEXT("End"), nullptr},
	{TEXT("Home"), nullptr}, {TEXT("Left"), nullptr}, {TEXT("Up"), nullptr}, {TEXT("Right"), nullptr},
	{TEXT("Down"), nullptr}, {TEXT("Insert"), nullptr}, {TEXT("Delete"), nullptr}, {TEXT("NumLock"), nullptr},
	{TEXT("ScrollLock"), nullptr}, {TEXT("LeftShift"), nullptr}, {TEXT("RightShift"), nullptr},
	{TEXT("LeftControl"), TEXT("Left Ctrl")}, {TEXT("RightControl"), TEXT("Right Ctrl")}, {TEXT("LeftAlt"), nullptr},
	{TEXT("RightAlt"), nullptr}, {TEXT("LeftCommand"), TEXT("Left Cmd")}, {TEXT("RightCommand"), TEXT("Right Cmd")},
	{TEXT("Semicolon"), nullptr}, {TEXT("Equals"), nullptr}, {TEXT("Comma"), nullptr}, {TEXT("Underscore"), nullptr},
	{TEXT("Hyphen"), nullptr}, {TEXT("Period"), nullptr}, {TEXT("Slash"), nullptr}, {TEXT("Tilde"), nullptr},
	{TEXT("LeftBracket"), nullptr}, {TEXT("Backslash"), nullptr}, {TEXT("RightBracket"), nullptr},
	{TEXT("Apostrophe"), nullptr}, {TEXT("Quote"), nullptr}, {TEXT("AnyKey"), nullptr}};

const FKeyRow Gamepad[] = {{TEXT("Gamepad_FaceButton_Bottom"), TEXT("Gamepad Face Button Bottom")},
	{TEXT("Gamepad_FaceButton_Right"), TEXT("Gamepad Face Button Right")},
	{TEXT("Gamepad_FaceButton_Left"), TEXT("Gamepad Face Button Left")},
	{TEXT("Gamepad_FaceButton_Top"), TEXT("Gamepad Face Button Top")},
	{TEXT("Gamepad_LeftShoulder"), TEXT("Gamepad Left Shoulder")},
	{TEXT("Gamepad_RightShoulder"), TEXT("Gamepad Right Shoulder")},
	{TEXT("Gamepad_LeftTrigger"), TEXT("Gamepad Left Trigger")},
	{TEXT("Gamepad_RightTrigger"), TEXT("Gamepad Right Trigger")}, {TEXT("Gamepad_DPad_Up"), TEXT("Gamepad D-pad Up")},
	{TEXT("Gamepad_DPad_Down"), TEXT("Gamepad D-pad Down")}, {TEXT("Gamepad_DPad_Right"), TEXT("Gamepad D-pad Right")},
	{TEXT("Gamepad_DPad_Left"), TEXT("Gamepad D-pad Left")},
	{TEXT("Gamepad_LeftThumbstick"), TEXT("Gamepad Left Thumbstick Button")},
	{TEXT("Gamepad_RightThumbstick"), TEXT("Gamepad Right Thumbstick Button")},
	{TEXT("Gamepad_Special_Left"), TEXT("Gamepad Special Left")},
	{TEXT("Gamepad_Special_Right"), TEXT("Gamepad Special Right")}};

const FKeyRow Touch[] = {{TEXT("Touch1"), TEXT("Touch 1")}, {TEXT("Touch2"), TEXT("Touch 2")},
	{TEXT("Touch3"), TEXT("Touch 3")}, {TEXT("Touch4"), TEXT("Touch 4")}};

void SetKey(UEdGraphNode& Node, const TCHAR* KeyName)
{
	const FStructProperty* const Key = FindFProperty<FStructProperty>(Node.GetClass(), TEXT("InputKey"));
	if (!Key || !Key->Struct)
	{
		return;
	}
	const FNameProperty* const Name = FindFProperty<FNameProperty>(Key->Struct, TEXT("KeyName"));
	if (Name)
	{
		Name->SetPropertyValue_InContainer(Key->ContainerPtrToValuePtr<void>(&Node), FName(KeyName));
	}
}

template <int32 Count>
void AddRows(const FKeyRow (&Rows)[Count], const TCHAR* Category, const UClass& NodeClass, FActionList& Out)
{
	for (const FKeyRow& Row : Rows)
	{
		const TCHAR* const Name = Row.Name;
		UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(
			&NodeClass, nullptr, [Name](UEdGraphNode* Node, bool) { SetKey(*Node, Name); });
		const FString Shown = Row.Shown ? FString(Row.Shown) : FName::NameToDisplayString(Name, false);
		Spawner->DefaultMenuSignature.MenuName = FText::FromString(Shown);
		Spawner->DefaultMenuSignature.Category = FText::FromString(Category);
		Add(Spawner, Out);
	}
}
} // namespace InputKeys

void AddInputKeys(FActionList& Out)
{
	const UClass* const NodeClass = FindObject<UClass>(nullptr, TEXT("/Script/BlueprintGraph.K2Node_InputKey"));
	if (!NodeClass)
	{
		return;
	}
	InputKeys::AddRows(InputKeys::Keyboard, TEXT("Input|Keyboard Events"), *NodeClass, Out);
	InputKeys::AddRows(InputKeys::Mouse, TEXT("Input|Mouse Events"), *NodeClass, Out);
	InputKeys::AddRows(InputKeys::Gamepad, TEXT("Input|Gamepad Events"), *NodeClass, Out);
	InputKeys::AddRows(InputKeys::Touch, TEXT("Input|Touch Events"), *NodeClass, Out);
}
} // namespace ActionSources
