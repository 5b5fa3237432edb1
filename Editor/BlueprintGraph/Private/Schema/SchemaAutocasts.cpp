// Library functions that a link inserts by itself to lead from one type to another.

#include "EdGraphSchema_K2.h"
#include "UObject/UnrealType.h"

namespace PinAutocasts
{
using FSchema = UEdGraphSchema_K2;

/** A function that converts, with the types it leads from and to. */
struct FAutocast
{
	FEdGraphPinType From;
	FEdGraphPinType To;
	const UFunction* Function = nullptr;
};

/** Libraries whose "Conv_" functions convert without being asked. Those that may lose the value's meaning carry other
 * names. */
const TCHAR* const Libraries[] = {TEXT("/Script/Engine.KismetMathLibrary"), TEXT("/Script/Engine.KismetStringLibrary"),
	TEXT("/Script/Engine.KismetTextLibrary"), TEXT("/Script/Engine.KismetSystemLibrary"),
	TEXT("/Script/Engine.KismetGuidLibrary"), TEXT("/Script/Engine.KismetInputLibrary"),
	TEXT("/Script/EnhancedInput.EnhancedInputLibrary"), TEXT("/Script/AudioMixer.AudioMixerBlueprintLibrary")};

static bool IsAutocast(const UFunction& Function)
{
	static const FName AutocastKey(TEXT("BlueprintAutocast"));
	// They convert, and are not called so.
	static const TSet<FName> Named = {FName(TEXT("FTrunc")), FName(TEXT("FTrunc64")), FName(TEXT("FTruncVector")),
		FName(TEXT("Quat_Rotator")), FName(TEXT("Key_GetDisplayName")), FName(TEXT("InputChord_GetDisplayName"))};
	// Soft references have a node of their own; an object is asked for its class, and seldom is one itself.
	static const TSet<FName> Never = {FName(TEXT("Conv_SoftObjectReferenceToObject")),
		FName(TEXT("Conv_SoftClassReferenceToClass")), FName(TEXT("Conv_ObjectToSoftObjectReference")),
		FName(TEXT("Conv_ClassToSoftClassReference")), FName(TEXT("Conv_ObjectToClass"))};
	if (!FSchema::CanUserKismetCallFunction(&Function) || Never.Contains(Function.GetFName())
		|| !Function.HasAllFunctionFlags(static_cast<EFunctionFlags>(FUNC_Static | FUNC_BlueprintPure)))
	{
		return false;
	}
	return Named.Contains(Function.GetFName()) || Function.HasMetaData(AutocastKey)
		|| Function.GetName().StartsWith(TEXT("Conv_"), ESearchCase::CaseSensitive);
}

static void AddFrom(const UClass& Library, TArray<FAutocast>& Out)
{
	for (TFieldIterator<UFunction> It(&Library, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const FProperty* const Return = It->GetReturnProperty();
		const FProperty* First = nullptr;
		for (TFieldIterator<FProperty> Param(*It, EFieldIteratorFlags::ExcludeSuper); Param && !First; ++Param)
		{
			First = Param->HasAnyPropertyFlags(CPF_Parm) ? *Param : nullptr;
		}
		FAutocast Row;
		Row.Function = *It;
		if (First && Return && First != Return && IsAutocast(**It)
			&& FSchema::ConvertPropertyToPinTypeStatic(First, Row.From)
			&& FSchema::ConvertPropertyToPinTypeStatic(Return, Row.To))
		{
			Out.Add(Row);
		}
	}
}

static const TArray<FAutocast>& Autocasts()
{
	static const TArray<FAutocast> Table = []
	{
		TArray<FAutocast> Rows;
		for (const TCHAR* const Path : Libraries)
		{
			if (const UClass* const Library = FindObject<UClass>(nullptr, Path))
			{
				AddFrom(*Library, Rows);
			}
		}
		return Rows;
	}();
	return Table;
}

/** The plain type or the very same one: what a text, a number or a struct is converted from must be just that. */
static bool TakesExactly(const FEdGraphPinType& Type, const FEdGraphPinType& Param)
{
	if (Type.PinCategory != Param.PinCategory || Type.IsContainer() || Param.IsContainer())
	{
		return false;
	}
	return Type.PinCategory == FSchema::PC_Real || Type.PinSubCategoryObject == Param.PinSubCategoryObject;
}

static const UFunction* FindInLibraries(const FSchema& Schema, const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	const UFunction* Near = nullptr;
	for (const FAutocast& Row : Autocasts())
	{
		if (!TakesExactly(Row.To, To))
		{
			continue;
		}
		if (TakesExactly(From, Row.From))
		{
			return Row.Function;
		}
		// An enum goes where a byte goes, and a child class where its parent does.
		if (!Near && Schema.ArePinTypesCompatible(From, Row.From))
		{
			Near = Row.Function;
		}
	}
	return Near;
}

static const UFunction* FindFunction(const TCHAR* Library, const TCHAR* Name)
{
	const UClass* const Class = FindObject<UClass>(nullptr, Library);
	return Class ? Class->FindFunctionByName(FName(Name)) : nullptr;
}

/** Conversions of every type of a kind, which no row of fixed types can tell. */
static const UFunction* FindForKind(const FSchema& Schema, const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	if (From.IsSet() && To.IsArray())
	{
		return Schema.ArePinTypesCompatible(From, To, nullptr, true)
			? FindFunction(TEXT("/Script/Engine.BlueprintSetLibrary"), TEXT("Set_ToArray"))
			: nullptr;
	}
	const bool bSingle = !From.IsContainer() && !To.IsContainer();
	if (bSingle && From.PinCategory == FSchema::PC_Object && To.PinCategory == FSchema::PC_Class)
	{
		const UClass* const Object = Cast<UClass>(From.PinSubCategoryObject.Get());
		const UClass* const Class = Cast<UClass>(To.PinSubCategoryObject.Get());
		return Object && Class && Object->IsChildOf(Class)
			? FindFunction(TEXT("/Script/Engine.GameplayStatics"), TEXT("GetObjectClass"))
			: nullptr;
	}
	return nullptr;
}

static bool HoldsValue(const FEdGraphPinType& Type)
{
	return Type.PinCategory != FSchema::PC_Wildcard && Type.PinCategory != FSchema::PC_Exec;
}
} // namespace PinAutocasts

bool UEdGraphSchema_K2::SearchForAutocastFunction(const FEdGraphPinType& OutputPinType,
	const FEdGraphPinType& InputPinType, FName& TargetFunction, UClass*& FunctionOwner) const
{
	using namespace PinAutocasts;
	if (!HoldsValue(OutputPinType) || !HoldsValue(InputPinType))
	{
		return false;
	}
	const UFunction* Function = FindForKind(*this, OutputPinType, InputPinType);
	if (!Function && !OutputPinType.IsContainer() && !InputPinType.IsContainer())
	{
		Function = FindInLibraries(*this, OutputPinType, InputPinType);
	}
	if (!Function)
	{
		return false;
	}
	TargetFunction = Function->GetFName();
	FunctionOwner = Function->GetOwnerClass();
	return true;
}
