#include "Menu/InputMappings.h"

#include "Misc/FileHelper.h"
#include "Misc/Paths.h"

namespace InputMappings
{
/** Behind the mark and before the next quote; empty when the line has no mark. */
static FString QuotedAfter(const FString& Line, const TCHAR* Mark)
{
	const int32 Begin = Line.Find(Mark);
	const FString Rest = Begin == INDEX_NONE ? FString() : Line.RightChop(Begin + FCString::Strlen(Mark));
	int32 End = INDEX_NONE;
	return Rest.FindChar(TEXT('"'), End) ? Rest.Left(End) : FString();
}

static void AddName(const FString& Line, const TCHAR* Mark, TArray<FString>& Out)
{
	const FString Name = QuotedAfter(Line, Mark);
	if (!Name.IsEmpty())
	{
		Out.AddUnique(Name);
	}
}
} // namespace InputMappings

FInputMappings FInputMappings::Read()
{
	FInputMappings Mappings;
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *(FPaths::ProjectConfigDir() + TEXT("DefaultInput.ini"))))
	{
		return Mappings;
	}
	TArray<FString> Lines;
	Text.ParseIntoArrayLines(Lines);
	for (const FString& Line : Lines)
	{
		// A key has a line of its own for each action that it does; a line that begins with '-' takes one back from the
		// engine's own settings.
		if (Line.StartsWith(TEXT("+ActionMappings=")) || Line.StartsWith(TEXT("ActionMappings=")))
		{
			InputMappings::AddName(Line, TEXT("ActionName=\""), Mappings.Actions);
		}
		else if (Line.StartsWith(TEXT("+AxisMappings=")) || Line.StartsWith(TEXT("AxisMappings=")))
		{
			InputMappings::AddName(Line, TEXT("AxisName=\""), Mappings.Axes);
		}
	}
	return Mappings;
}
