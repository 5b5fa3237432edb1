#include "InputCoreTypes.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_STRUCT(FKey, "/Script/InputCore")

void FKey::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("KeyName"), &FKey::KeyName, CPF_Edit);
}

namespace Keys
{
/** Keys whose shown name is not their name with blanks put in. */
struct FShownName
{
	const TCHAR* Name;
	const TCHAR* Shown;
};
constexpr FShownName ShownNames[] = {{TEXT("AnyKey"), TEXT("Any Key")}, {TEXT("MouseX"), TEXT("Mouse X")},
	{TEXT("MouseY"), TEXT("Mouse Y")}, {TEXT("Mouse2D"), TEXT("Mouse XY 2D-Axis")},
	{TEXT("MouseWheelAxis"), TEXT("Mouse Wheel Axis")}, {TEXT("SpaceBar"), TEXT("Space Bar")},
	{TEXT("Zero"), TEXT("0")}, {TEXT("One"), TEXT("1")}, {TEXT("Two"), TEXT("2")}, {TEXT("Three"), TEXT("3")},
	{TEXT("Four"), TEXT("4")}, {TEXT("Five"), TEXT("5")}, {TEXT("Six"), TEXT("6")}, {TEXT("Seven"), TEXT("7")},
	{TEXT("Eight"), TEXT("8")}, {TEXT("Nine"), TEXT("9")}, {TEXT("NumPadZero"), TEXT("Num 0")},
	{TEXT("NumPadOne"), TEXT("Num 1")}, {TEXT("NumPadTwo"), TEXT("Num 2")}, {TEXT("NumPadThree"), TEXT("Num 3")},
	{TEXT("NumPadFour"), TEXT("Num 4")}, {TEXT("NumPadFive"), TEXT("Num 5")}, {TEXT("NumPadSix"), TEXT("Num 6")},
	{TEXT("NumPadSeven"), TEXT("Num 7")}, {TEXT("NumPadEight"), TEXT("Num 8")}, {TEXT("NumPadNine"), TEXT("Num 9")},
	{TEXT("Multiply"), TEXT("Num *")}, {TEXT("Add"), TEXT("Num +")}, {TEXT("Subtract"), TEXT("Num -")},
	{TEXT("Decimal"), TEXT("Num .")}, {TEXT("Divide"), TEXT("Num /")}, {TEXT("LeftShift"), TEXT("Left Shift")},
	{TEXT("LeftControl"), TEXT("Left Ctrl")}, {TEXT("RightControl"), TEXT("Right Ctrl")},
	{TEXT("LeftCommand"), TEXT("Left Cmd")}, {TEXT("RightCommand"), TEXT("Right Cmd")}};

const TCHAR* const Plain[] = {TEXT("AnyKey"), TEXT("MouseX"), TEXT("MouseY"), TEXT("Mouse2D"), TEXT("MouseScrollUp"),
	TEXT("MouseScrollDown"), TEXT("MouseWheelAxis"), TEXT("LeftMouseButton"), TEXT("RightMouseButton"),
	TEXT("MiddleMouseButton"), TEXT("ThumbMouseButton"), TEXT("ThumbMouseButton2"), TEXT("BackSpace"), TEXT("Tab"),
	TEXT("Enter"), TEXT("Pause"), TEXT("CapsLock"), TEXT("Escape"), TEXT("SpaceBar"), TEXT("PageUp"), TEXT("PageDown"),
	TEXT("End"), TEXT("Home"), TEXT("Left"), TEXT("Up"), TEXT("Right"), TEXT("Down"), TEXT("Insert"), TEXT("Delete"),
	TEXT("Zero"), TEXT("One"), TEXT("Two"), TEXT("Three"), TEXT("Four"), TEXT("Five"), TEXT("Six"), TEXT("Seven"),
	TEXT("Eight"), TEXT("Nine"), TEXT("A"), TEXT("B"), TEXT("C"), TEXT("D"), TEXT("E"), TEXT("F"), TEXT("G"), TEXT("H"),
	TEXT("I"), TEXT("J"), TEXT("K"), TEXT("L"), TEXT("M"), TEXT("N"), TEXT("O"), TEXT("P"), TEXT("Q"), TEXT("R"),
	TEXT("S"), TEXT("T"), TEXT("U"), TEXT("V"), TEXT("W"), TEXT("X"), TEXT("Y"), TEXT("Z"), TEXT("NumPadZero"),
	TEXT("NumPadOne"), TEXT("NumPadTwo"), TEXT("NumPadThree"), TEXT("NumPadFour"), TEXT("NumPadFive"),
	TEXT("NumPadSix"), TEXT("NumPadSeven"), TEXT("NumPadEight"), TEXT("NumPadNine"), TEXT("Multiply"), TEXT("Add"),
	TEXT("Subtract"), TEXT("Decimal"), TEXT("Divide"), TEXT("F1"), TEXT("F2"), TEXT("F3"), TEXT("F4"), TEXT("F5"),
	TEXT("F6"), TEXT("F7"), TEXT("F8"), TEXT("F9"), TEXT("F10"), TEXT("F11"), TEXT("F12"), TEXT("NumLock"),
	TEXT("ScrollLock"), TEXT("LeftShift"), TEXT("RightShift"), TEXT("LeftControl"), TEXT("RightControl"),
	TEXT("LeftAlt"), TEXT("RightAlt"), TEXT("LeftCommand"), TEXT("RightCommand"), TEXT("Semicolon"), TEXT("Equals"),
	TEXT("Comma"), TEXT("Underscore"), TEXT("Hyphen"), TEXT("Period"), TEXT("Slash"), TEXT("Tilde"),
	TEXT("LeftBracket"), TEXT("Backslash"), TEXT("RightBracket"), TEXT("Apostrophe"), TEXT("Ampersand"),
	TEXT("Asterix"), TEXT("Caret"), TEXT("Colon"), TEXT("Dollar"), TEXT("Exclamation"), TEXT("LeftParantheses"),
	TEXT("RightParantheses"), TEXT("Quote"), TEXT("Gamepad_LeftX"), TEXT("Gamepad_LeftY"), TEXT("Gamepad_RightX"),
	TEXT("Gamepad_RightY"), TEXT("Gamepad_Left2D"), TEXT("Gamepad_Right2D"), TEXT("Gamepad_LeftTriggerAxis"),
	TEXT("Gamepad_RightTriggerAxis"), TEXT("Gamepad_LeftThumbstick"), TEXT("Gamepad_RightThumbstick"),
	TEXT("Gamepad_Special_Left"), TEXT("Gamepad_Special_Right"), TEXT("Gamepad_FaceButton_Bottom"),
	TEXT("Gamepad_FaceButton_Right"), TEXT("Gamepad_FaceButton_Left"), TEXT("Gamepad_FaceButton_Top"),
	TEXT("Gamepad_LeftShoulder"), TEXT("Gamepad_RightShoulder"), TEXT("Gamepad_LeftTrigger"),
	TEXT("Gamepad_RightTrigger"), TEXT("Gamepad_DPad_Up"), TEXT("Gamepad_DPad_Down"), TEXT("Gamepad_DPad_Right"),
	TEXT("Gamepad_DPad_Left"), TEXT("Tilt"), TEXT("RotationRate"), TEXT("Gravity"), TEXT("Acceleration"),
	TEXT("Touch1"), TEXT("Touch2"), TEXT("Touch3"), TEXT("Touch4"), TEXT("Touch5"), TEXT("Touch6"), TEXT("Touch7"),
	TEXT("Touch8"), TEXT("Touch9"), TEXT("Touch10"), TEXT("Global_Menu"), TEXT("Global_View"), TEXT("Global_Pause"),
	TEXT("Global_Play"), TEXT("Global_Back")};
} // namespace Keys

FText FKey::GetDisplayName(bool) const
{
	for (const Keys::FShownName& Row : Keys::ShownNames)
	{
		if (KeyName == Row.Name)
		{
			return FText::FromString(Row.Shown);
		}
	}
	return FText::FromString(FName::NameToDisplayString(KeyName.ToString().Replace(TEXT("_"), TEXT(" ")), false));
}

bool FKey::IsAxis1D() const
{
	static const TSet<FName> Axes = {FName(TEXT("MouseX")), FName(TEXT("MouseY")), FName(TEXT("MouseWheelAxis")),
		FName(TEXT("Gamepad_LeftX")), FName(TEXT("Gamepad_LeftY")), FName(TEXT("Gamepad_RightX")),
		FName(TEXT("Gamepad_RightY")), FName(TEXT("Gamepad_LeftTriggerAxis")), FName(TEXT("Gamepad_RightTriggerAxis"))};
	return Axes.Contains(KeyName);
}

bool FKey::IsAxis2D() const
{
	static const TSet<FName> Axes = {
		FName(TEXT("Mouse2D")), FName(TEXT("Gamepad_Left2D")), FName(TEXT("Gamepad_Right2D"))};
	return Axes.Contains(KeyName);
}

bool FKey::IsGamepadKey() const
{
	const FString Name = KeyName.ToString();
	return Name.StartsWith(TEXT("Gamepad_")) || Name.StartsWith(TEXT("Global_"));
}

bool FKey::IsMouseButton() const
{
	return KeyName.ToString().Contains(TEXT("Mouse"));
}

FName FKey::GetMenuCategory() const
{
	if (IsGamepadKey())
	{
		return FName(TEXT("Gamepad"));
	}
	return IsMouseButton() ? FName(TEXT("Mouse")) : FName(TEXT("Keyboard"));
}

bool FKey::IsAxis3D() const
{
	static const TSet<FName> Axes = {
		FName(TEXT("Tilt")), FName(TEXT("RotationRate")), FName(TEXT("Gravity")), FName(TEXT("Acceleration"))};
	return Axes.Contains(KeyName);
}

const TArray<FKey>& FKey::GetAllKeys()
{
	static const TArray<FKey> All = []
	{
		TArray<FKey> Made;
		for (const TCHAR* const Name : Keys::Plain)
		{
			Made.Add(FKey(FName(Name)));
		}
		return Made;
	}();
	return All;
}

bool FKey::ExportTextItem(FString& ValueStr, const FKey&, UObject*, int32, UObject*) const
{
	ValueStr += KeyName.ToString();
	return true;
}

bool FKey::ImportTextItem(const TCHAR*& Buffer, int32, UObject*, FOutputDevice*)
{
	// A form of its own writes the struct out; its only member is the name.
	static const FString Long(TEXT("(KeyName="));
	const bool bLong = FString(FStringView(Buffer).Left(Long.Len())).Equals(Long, ESearchCase::CaseSensitive);
	Buffer += bLong ? Long.Len() : 0;
	const bool bQuoted = *Buffer == TEXT('"');
	Buffer += bQuoted ? 1 : 0;
	FString Name;
	while (*Buffer && *Buffer != TEXT('"') && *Buffer != TEXT(',') && *Buffer != TEXT(')') && *Buffer != TEXT('\n')
		&& *Buffer != TEXT('\r'))
	{
		Name.AppendChar(*Buffer);
		++Buffer;
	}
	Buffer += bQuoted && *Buffer == TEXT('"') ? 1 : 0;
	Buffer += bLong && *Buffer == TEXT(')') ? 1 : 0;
	KeyName = FName(Name.TrimStartAndEnd());
	return true;
}
