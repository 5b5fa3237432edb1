#include "Utils/Structure/PropertyJson.h"

#include "AssetOperationBase.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "Misc/OutputDevice.h"
#include "Misc/PackageName.h"
#include "UObject/UnrealType.h"
#include "Utils/Asset/SoftReferences.h"
#include "Utils/Structure/StructureEntry.h"

#include <cmath>
#include <limits>
#include <new>

FPropertyScratch::FPropertyScratch(const FProperty& InProperty, const void* CopyOf)
	: Property(InProperty)
	, Memory(::operator new (static_cast<std::size_t>(FMath::Max(1, InProperty.GetElementSize())),
		  std::align_val_t{static_cast<std::size_t>(InProperty.GetMinAlignment())}))
{
	Property.InitializeValue(Memory);
	if (CopyOf)
	{
		Property.CopyCompleteValue(Memory, CopyOf);
	}
}

FPropertyScratch::~FPropertyScratch()
{
	Property.DestroyValue(Memory);
	::operator delete (Memory, std::align_val_t{static_cast<std::size_t>(Property.GetMinAlignment())});
}

namespace PropertyJsonText
{
/** Keeps the first complaint of an import. */
class FFirstFault : public FOutputDevice
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		Fault = Fault.IsEmpty() ? FString(Text) : Fault;
	}
	FString Fault;
};

/** Names as agents write them differ in case, blanks and underscores. */
static FString Squeeze(const FString& Name)
{
	return Name.Replace(TEXT("_"), TEXT("")).Replace(TEXT(" "), TEXT("")).ToLower();
}
} // namespace PropertyJsonText

namespace PropertyJsonValues
{
using FJson = TSharedPtr<FJsonValue>;

static bool Fail(FString& OutFault, const FJson& Json, const FProperty& Property)
{
	OutFault = FString::Printf(
		TEXT("%s is not a valid %s"), *StructureValues::Show(Json), *PropertyJson::TypeText(Property));
	return false;
}

static bool WriteBool(const FProperty& Property, const FJson& Json, void* Value, FString& OutFault)
{
	bool bFlag = false;
	if (!StructureValues::ToBool(Json, bFlag))
	{
		return Fail(OutFault, Json, Property);
	}
	return PropertyJson::Import(Property, bFlag ? TEXT("True") : TEXT("False"), Value, nullptr, OutFault);
}

/** The entry of any spelling, or by its number; none for the closing one that stands for no value. */
static int32 FindEnumEntry(const UEnum& Enum, const FJson& Json)
{
	FString Name;
	double Number = 0.0;
	int32 Index = INDEX_NONE;
	if (MorvaneJson::TryGetString(*Json, Name))
	{
		Name = Name.TrimStartAndEnd();
		Index = Enum.GetIndexByNameString(Name);
		for (int32 Entry = 0; Entry < Enum.NumEnums() && Index == INDEX_NONE; ++Entry)
		{
			const FString Shown = PropertyJsonText::Squeeze(Enum.GetDisplayNameTextByIndex(Entry).ToString());
			Index = Shown == PropertyJsonText::Squeeze(Name) ? Entry : Index;
		}
	}
	if (Index == INDEX_NONE && StructureValues::ToNumber(Json, Number) && std::floor(Number) == Number)
	{
		Index = Enum.GetIndexByValue(static_cast<int64>(Number));
	}
	return Enum.ContainsExistingMax() && Index == Enum.NumEnums() - 1 ? static_cast<int32>(INDEX_NONE) : Index;
}

static bool WriteEnum(const FProperty& Property, const UEnum& Enum, const FJson& Json, void* Value, FString& OutFault)
{
	const int32 Index = FindEnumEntry(Enum, Json);
	if (Index == INDEX_NONE)
	{
		TArray<FString> Names;
		for (int32 Entry = 0; Entry < FMath::Min(Enum.NumEnums() - (Enum.ContainsExistingMax() ? 1 : 0), 8); ++Entry)
		{
			Names.Add(Enum.GetNameStringByIndex(Entry));
		}
		OutFault = FString::Printf(TEXT("%s is not an entry of the enum %s (it has %s)"), *StructureValues::Show(Json),
			*Enum.GetName(), *FString::Join(Names, TEXT(", ")));
		return false;
	}
	return PropertyJson::Import(Property, Enum.GetNameStringByIndex(Index), Value, nullptr, OutFault);
}

/** A whole number keeps all its digits when it comes as text. */
static bool WriteNumber(const FNumericProperty& Property, const FJson& Json, void* Value, FString& OutFault)
{
	double Number = 0.0;
	if (!StructureValues::ToNumber(Json, Number) || (Property.IsInteger() && std::floor(Number) != Number))
	{
		return Fail(OutFault, Json, Property);
	}
	constexpr double Largest = std::numeric_limits<float>::max();
	if (Property.IsA<FFloatProperty>() && std::abs(Number) > Largest)
	{
		return Fail(OutFault, Json, Property);
	}
	FString Text;
	if (!MorvaneJson::TryGetString(*Json, Text))
	{
		// The shortest text that reads back as the same number.
		Text = Property.IsInteger() ? FString::Printf(TEXT("%.0f"), Number) : FString::Printf(TEXT("%.17g"), Number);
	}
	FString Reason;
	return PropertyJson::Import(Property, Text.TrimStartAndEnd(), Value, nullptr, Reason)
		|| Fail(OutFault, Json, Property);
}

static bool WriteText(const FProperty& Property, const FJson& Json, void* Value, FString& OutFault)
{
	FString Text;
	bool bFlag = false;
	double Number = 0.0;
	if (MorvaneJson::TryGetNumber(*Json, Number))
	{
		Text = StructureValues::NumberText(Number);
	}
	else if (MorvaneJson::TryGetBool(*Json, bFlag))
	{
		Text = bFlag ? TEXT("true") : TEXT("false");
	}
	else if (!MorvaneJson::TryGetString(*Json, Text) || (Property.IsA<FNameProperty>() && Text.Len() >= NAME_SIZE))
	{
		return Fail(OutFault, Json, Property);
	}
	if (Text.IsEmpty())
	{
		Property.ClearValue(Value);
		return true;
	}
	return PropertyJson::Import(Property, Text, Value, nullptr, OutFault);
}

static bool IsNothing(const FJson& Json)
{
	FString Text;
	if (Json->IsNull())
	{
		return true;
	}
	return MorvaneJson::TryGetString(*Json, Text)
		&& (Text.TrimStartAndEnd().IsEmpty() || Text.TrimStartAndEnd().Equals(TEXT("None"), ESearchCase::IgnoreCase));
}

/** A class by any of its names; null where the text names none, or none of the right kind. */
static UClass* FindClass(const FString& Text, const UClass* Base)
{
	UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(Text);
	return Class && (!Base || Class->IsChildOf(Base)) ? Class : nullptr;
}

static bool WriteSoftReference(const FSoftObjectProperty& Property, const FJson& Json, void* Value, FString& OutFault)
{
	FString Path;
	MorvaneJson::TryGetString(*Json, Path);
	if (const FSoftClassProperty* const AsClass = CastField<FSoftClassProperty>(&Property))
	{
		if (const UClass* const Class = FindClass(Path, AsClass->MetaClass))
		{
			return PropertyJson::Import(Property, Class->GetPathName(), Value, nullptr, OutFault);
		}
	}
	// What it leads to need not be there, but it has to be a place where something could be.
	FString Bare = Path.TrimStartAndEnd();
	int32 Quote = INDEX_NONE;
	if (Bare.FindChar(TEXT('\''), Quote))
	{
		Bare = Bare.RightChop(Quote + 1).Replace(TEXT("'"), TEXT(""));
	}
	const bool bPlace = Bare.StartsWith(TEXT("/")) && FPackageName::IsValidObjectPath(Bare);
	return bPlace ? PropertyJson::Import(Property, SoftReferences::ToObjectPath(Path), Value, nullptr, OutFault)
				  : Fail(OutFault, Json, Property);
}

static bool WriteReference(const FProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	FString Text;
	if (IsNothing(Json))
	{
		Property.ClearValue(Value);
		return true;
	}
	if (!MorvaneJson::TryGetString(*Json, Text))
	{
		return Fail(OutFault, Json, Property);
	}
	if (const FSoftObjectProperty* const Soft = CastField<FSoftObjectProperty>(&Property))
	{
		return WriteSoftReference(*Soft, Json, Value, OutFault);
	}
	const FClassProperty* const AsClass = CastField<FClassProperty>(&Property);
	if (UClass* const Class = AsClass ? FindClass(Text, AsClass->MetaClass) : nullptr)
	{
		AsClass->SetObjectPropertyValue(Value, Class);
		return true;
	}
	FString Reason;
	if (PropertyJson::Import(Property, Text, Value, Owner, Reason))
	{
		return true;
	}
	const FString Known = FAssetOperationBase::NormalizeAssetPath(Text);
	if (Known != Text && PropertyJson::Import(Property, Known, Value, Owner, Reason))
	{
		return true;
	}
	OutFault = FString::Printf(TEXT("'%s' names nothing that a %s could be"), *Text, *PropertyJson::TypeText(Property));
	return false;
}

static bool WriteArray(
	const FArrayProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	const FScriptArrayHelper Helper(&Property, Value);
	Helper.EmptyValues();
	for (const FJson& Element : MorvaneJson::AsArray(*Json))
	{
		const int32 Index = Helper.AddValue();
		if (!PropertyJson::Write(*Property.Inner, Element, Helper.GetRawPtr(Index), Owner, OutFault))
		{
			return false;
		}
	}
	return true;
}

static bool WriteSet(const FSetProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	const FScriptSetHelper Helper(&Property, Value);
	Helper.EmptyElements();
	for (const FJson& Element : MorvaneJson::AsArray(*Json))
	{
		const FPropertyScratch Read(*Property.ElementProp);
		if (!PropertyJson::Write(*Property.ElementProp, Element, Read.Get(), Owner, OutFault))
		{
			return false;
		}
		Helper.AddElement(Read.Get());
	}
	return true;
}

static bool AddPair(const FMapProperty& Property, const FJson& KeyJson, const FJson& ValueJson, void* Value,
	UObject* Owner, FString& OutFault)
{
	const FPropertyScratch Key(*Property.KeyProp);
	const FPropertyScratch Held(*Property.ValueProp);
	if (!PropertyJson::Write(*Property.KeyProp, KeyJson, Key.Get(), Owner, OutFault)
		|| !PropertyJson::Write(*Property.ValueProp, ValueJson, Held.Get(), Owner, OutFault))
	{
		return false;
	}
	FScriptMapHelper(&Property, Value).AddPair(Key.Get(), Held.Get());
	return true;
}

/** From an object, or from a list of {"key": ..., "value": ...} for keys that are no text. */
static bool WriteMap(const FMapProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	FScriptMapHelper(&Property, Value).EmptyValues();
	if (const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(*Json))
	{
		for (const auto& Member : Object->Values)
		{
			const FJson Key = MakeShared<FJsonValueString>(FString(Member.Key));
			if (!AddPair(Property, Key, Member.Value, Value, Owner, OutFault))
			{
				return false;
			}
		}
		return true;
	}
	for (const FJson& Element : MorvaneJson::AsArray(*Json))
	{
		const TSharedPtr<FJsonObject>& Pair = MorvaneJson::AsObject(*Element);
		const FJson Key = Pair ? Pair->TryGetField(TEXT("key")) : nullptr;
		const FJson Held = Pair ? Pair->TryGetField(TEXT("value")) : nullptr;
		if (!Key || !Held)
		{
			OutFault = FString::Printf(
				TEXT("%s is not a pair with a 'key' and a 'value'"), *StructureValues::Show(Element));
			return false;
		}
		if (!AddPair(Property, Key, Held, Value, Owner, OutFault))
		{
			return false;
		}
	}
	return true;
}

/** Containers as JSON; as text they are read like everything else. */
static bool WriteContainer(const FProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	FString Text;
	if (MorvaneJson::TryGetString(*Json, Text))
	{
		if (Text.TrimStartAndEnd().IsEmpty())
		{
			Property.ClearValue(Value);
			return true;
		}
		return PropertyJson::Import(Property, Text, Value, Owner, OutFault);
	}
	const FMapProperty* const Map = CastField<FMapProperty>(&Property);
	if (Json->Type != EJson::Array && !(Map && Json->Type == EJson::Object))
	{
		return Fail(OutFault, Json, Property);
	}
	if (Map)
	{
		return WriteMap(*Map, Json, Value, Owner, OutFault);
	}
	const FSetProperty* const Set = CastField<FSetProperty>(&Property);
	return Set ? WriteSet(*Set, Json, Value, Owner, OutFault)
			   : WriteArray(*CastField<FArrayProperty>(&Property), Json, Value, Owner, OutFault);
}

static const UEnum* GetEnum(const FProperty& Property)
{
	if (const FEnumProperty* const AsEnum = CastField<FEnumProperty>(&Property))
	{
		return AsEnum->GetEnum();
	}
	const FByteProperty* const Byte = CastField<FByteProperty>(&Property);
	return Byte ? Byte->Enum : nullptr;
}
} // namespace PropertyJsonValues

bool PropertyJson::Import(
	const FProperty& Property, const FString& Text, void* Value, UObject* Owner, FString& OutFault)
{
	PropertyJsonText::FFirstFault Faults;
	const TCHAR* const End = Property.ImportText_Direct(*Text, Value, Owner, PPF_None, &Faults);
	if (End && FString(End).TrimStart().IsEmpty() && Faults.Fault.IsEmpty())
	{
		return true;
	}
	OutFault = FString::Printf(TEXT("'%s' is not a valid %s"), *Text, *TypeText(Property));
	OutFault += Faults.Fault.IsEmpty() ? FString() : TEXT(" (") + Faults.Fault + TEXT(")");
	return false;
}

FString PropertyJson::ToText(const FProperty& Property, const void* Value, UObject* Owner)
{
	FString Text;
	Property.ExportTextItem_Direct(Text, Value, nullptr, Owner, PPF_None);
	const FNumericProperty* const Number = CastField<FNumericProperty>(&Property);
	if (Number && Number->IsFloatingPoint())
	{
		// Six digits behind the point do for most numbers, and not for the small ones.
		const double Real = Number->GetFloatingPointPropertyValue(Value);
		const FPropertyScratch Back(Property);
		FString Fault;
		if (!Import(Property, Text, Back.Get(), nullptr, Fault) || !Property.Identical(Back.Get(), Value))
		{
			Text = FString::Printf(Property.IsA<FFloatProperty>() ? TEXT("%.9g") : TEXT("%.17g"), Real);
		}
	}
	return Text;
}

FString PropertyJson::TypeText(const FProperty& Property)
{
	FEdGraphPinType Type;
	if (FAssetOperationBase::ConvertPropertyToEdGraphPinType(&Property, Type))
	{
		return UEdGraphSchema_K2::TypeToText(Type).ToString();
	}
	FString Inner;
	const FString Outer = Property.GetCPPType(&Inner);
	return Outer + Inner;
}

bool PropertyJson::MeansProperty(const FString& Name, const FProperty& Property)
{
	const FString Wanted = PropertyJsonText::Squeeze(Name);
	const FString Own = PropertyJsonText::Squeeze(Property.GetName());
	return Wanted == Own || (Property.IsA<FBoolProperty>() && Own == TEXT("b") + Wanted)
		|| Wanted == PropertyJsonText::Squeeze(Property.GetDisplayNameText().ToString());
}

bool PropertyJson::Write(
	const FProperty& Property, const TSharedPtr<FJsonValue>& Json, void* Value, UObject* Owner, FString& OutFault)
{
	using namespace PropertyJsonValues;
	if (Property.IsA<FObjectPropertyBase>() || Property.IsA<FInterfaceProperty>())
	{
		return WriteReference(Property, Json, Value, Owner, OutFault);
	}
	if (Property.IsA<FArrayProperty>() || Property.IsA<FSetProperty>() || Property.IsA<FMapProperty>())
	{
		return WriteContainer(Property, Json, Value, Owner, OutFault);
	}
	if (const FStructProperty* const Struct = CastField<FStructProperty>(&Property))
	{
		return PropertyJsonStructs::Write(*Struct, Json, Value, Owner, OutFault);
	}
	if (const UEnum* const Enum = GetEnum(Property))
	{
		return WriteEnum(Property, *Enum, Json, Value, OutFault);
	}
	if (Property.IsA<FBoolProperty>())
	{
		return WriteBool(Property, Json, Value, OutFault);
	}
	if (const FNumericProperty* const Number = CastField<FNumericProperty>(&Property))
	{
		return WriteNumber(*Number, Json, Value, OutFault);
	}
	if (Property.IsA<FDelegateProperty>() || Property.IsA<FMulticastDelegateProperty>())
	{
		return Fail(OutFault, Json, Property);
	}
	return WriteText(Property, Json, Value, OutFault);
}
