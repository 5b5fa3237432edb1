#include "RequestForms.h"
#include "RequestSyntax.h"

// "E key pressed", "when space is pressed", "on left mouse button": each key has a node of its own, titled by the key.

namespace RequestKeyImpl
{
using RequestSyntax::IsOneOf;

/** What people call keys that are titled otherwise. */
static FString GetKeyTitle(const FString& Name)
{
	struct FKeyName
	{
		const TCHAR* Names;
		const TCHAR* Title;
	};
	static constexpr FKeyName Keys[] = {
		{TEXT("space spacebar"), TEXT("Space Bar")},
		{TEXT("esc"), TEXT("Escape")},
		{TEXT("return"), TEXT("Enter")},
		{TEXT("shift"), TEXT("Left Shift")},
		{TEXT("ctrl control leftctrl leftcontrol"), TEXT("Left Ctrl")},
		{TEXT("alt"), TEXT("Left Alt")},
		{TEXT("uparrow arrowup"), TEXT("Up")},
		{TEXT("downarrow arrowdown"), TEXT("Down")},
		{TEXT("leftarrow arrowleft"), TEXT("Left")},
		{TEXT("rightarrow arrowright"), TEXT("Right")},
		{TEXT("lmb leftmouse leftclick leftmouseclick mouseleft mouse1"), TEXT("Left Mouse Button")},
		{TEXT("rmb rightmouse rightclick rightmouseclick mouseright mouse2"), TEXT("Right Mouse Button")},
		{TEXT("mmb middlemouse middleclick"), TEXT("Middle Mouse Button")},
		{TEXT("mousewheelup scrollup wheelup scrollwheelup"), TEXT("Mouse Scroll Up")},
		{TEXT("mousewheeldown scrolldown wheeldown scrollwheeldown"), TEXT("Mouse Scroll Down")},
	};
	for (const FKeyName& Row : Keys)
	{
		if (IsOneOf(Name.Replace(TEXT(" "), TEXT("")), Row.Names))
		{
			return Row.Title;
		}
	}
	return Name;
}

static bool IsArrow(const FString& Name)
{
	return IsOneOf(Name, TEXT("up down left right"));
}
} // namespace RequestKeyImpl

void RequestForms::ReadKey(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestKeyImpl;

	const TCHAR* const Tells = TEXT("key keys keyboard press presses pressed hotkey keypress keydown keybind");
	const TCHAR* const Around = TEXT(
		"event events input hit hits released release binding bind player user on when if is the gets for of action node");
	TArray<FString> Rest;
	bool bTold = false;
	for (const FString& Piece : Pieces)
	{
		const bool bTells = IsOneOf(Piece, Tells);
		bTold |= bTells;
		if (!bTells && !IsOneOf(Piece, Around))
		{
			Rest.Add(Piece);
		}
	}
	if (Rest.Num() > 1 && IsOneOf(Rest[0], TEXT("a an")))
	{
		Rest.RemoveAt(0);
	}
	const FString Name = FString::Join(Rest, TEXT(" "));
	const FString Title = GetKeyTitle(Name);
	// "is key down" asks for no arrow.
	if (!Rest.IsEmpty() && Rest.Num() <= 4 && (bTold || Title != Name) && !IsArrow(Name))
	{
		OutReadings.Add({Title, FString(), ERequestFit::Whole, TEXT("K2Node_InputKey")});
		OutReadings.Add({Title + TEXT(" Button"), FString(), ERequestFit::Whole, TEXT("K2Node_InputKey")});
	}
}
