#include "Utils/Widget/JsonPropertyValue.h"

#include "AssetOperationBase.h"
#include "JsonReading.h"
#include "UObject/UnrealType.h"

#include <new>

namespace JsonPropertyValue
{
namespace
{
/** A value of its own to work on, so that one that fails half way is never seen. */
class FScratch
{
public:
	FScratch(const FProperty& InProperty, const void* Source)
		: Property(InProperty)
		, Alignment(std::align_val_t(FMath::Max(1, InProperty.GetMinAlignment())))
		, Memory(::operator new(static_cast<std::size_t>(FMath::Max(1, InProperty.GetElementSize())), Alignment))
	{
		Property.InitializeValue(Memory);
		Property.CopyCompleteValue(Memory, Source);
	}
	~FScratch()
	{
		Property.DestroyValue(Memory);
		::operator delete(Memory, Alignment);
	}
	FScratch(const FScratch&) = delete;
	FScratch& operator=(const FScratch&) = delete;

	void* Get() const { return Memory; }

private:
	const FProperty& Property;
	const std::align_val_t Alignment;
	void* const Memory;
};

UEnum* GetEnum(const FProperty& Property)
{
	if (const FEnumProperty* const EnumProperty = CastField<FEnumProperty>(&Property))
	{
		return EnumProperty->GetEnum();
	}
	const FNumericProperty* const Number = CastField<FNumericProperty>(&Property);
	return Number ? Number->GetIntPropertyEnum() : nullptr;
}

/** "HAlign_Center" for "Center", "center" or what the editor shows for it. */
int32 FindEnumerator(const UEnum& Enum, const FString& Text)
{
	const int32 Exact = Enum.GetIndexByNameString(Text);
	if (Exact != INDEX_NONE)
	{
		return Exact;
	}
	for (int32 Index = 0; Index < Enum.NumEnums(); ++Index)
	{
		if (Enum.GetNameStringByIndex(Index).EndsWith(TEXT("_") + Text, ESearchCase::IgnoreCase)
			|| Enum.GetDisplayNameTextByIndex(Index).ToString().Equals(Text, ESearchCase::IgnoreCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

/** The spelling that import reads; false when the enum has no such value. */
bool ToEnumeratorName(const UEnum& Enum, const FString& Text, FString& OutName)
{
	const FString Word = Text.TrimStartAndEnd();
	int32 Index = FindEnumerator(Enum, Word);
	Index = Index == INDEX_NONE ? FindEnumerator(Enum, Word.Replace(TEXT(" "), TEXT(""))) : Index;
	if (Index == INDEX_NONE && Word.IsNumeric() && !Word.Contains(TEXT(".")))
	{
		Index = Enum.GetIndexByValue(FCString::Atoi64(*Word));
	}
	OutName = Index == INDEX_NONE ? FString() : Enum.GetNameStringByIndex(Index);
	return Index != INDEX_NONE;
}

bool IsPlainText(const FProperty& Property)
{
	return Property.IsA<FStrProperty>() || Property.IsA<FTextProperty>() || Property.IsA<FNameProperty>();
}

bool IsSlateColor(const FProperty& Property)
{
	const FStructProperty* const Struct = CastField<FStructProperty>(&Property);
	return Struct && Struct->Struct && Struct->Struct->GetName() == TEXT("SlateColor");
}

/** A color's own four members, as authors write them for a color of a style as well. */
bool IsColorField(const FString& Name)
{
	for (const TCHAR* const Field : {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")})
	{
		if (Name.Equals(Field, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

/** "(R=1,...)" for a color of a style means that very color. */
FString ToImportText(const FProperty& Property, const FString& Text)
{
	const FString Inner = Text.TrimStart().Mid(1).TrimStart();
	const bool bPlainColor = IsSlateColor(Property) && Text.TrimStart().StartsWith(TEXT("(")) && Inner.Len() > 1
		&& IsColorField(Inner.Left(1)) && Inner.Mid(1).TrimStart().StartsWith(TEXT("="));
	return bPlainColor ? TEXT("(SpecifiedColor=") + Text + TEXT(",ColorUseRule=UseColor_Specified)") : Text;
}

/** The full path of what an author names by asset path or name alone; empty when the property refers to nothing. */
FString ToReference(const FProperty& Property, const FString& Text)
{
	if (Property.IsA<FClassProperty>())
	{
		const UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(Text);
		return Class ? Class->GetPathName() : FString();
	}
	if (!Property.IsA<FObjectProperty>() || !Text.Contains(TEXT("/")))
	{
		return FString();
	}
	const FString Package = FAssetOperationBase::NormalizeAssetPath(Text);
	return Package + TEXT(".") + FAssetOperationBase::GetAssetNameFromPath(Package);
}

bool ImportAll(const FProperty& Property, const FString& Text, void* Value, UObject& Owner)
{
	const TCHAR* End = Property.ImportText_Direct(*Text, Value, &Owner, PPF_None, nullptr);
	while (End && FChar::IsWhitespace(*End))
	{
		++End;
	}
	return End && *End == TEXT('\0');
}

bool ImportWhole(const FProperty& Property, const FString& Text, void* Value, UObject& Owner)
{
	if (const UEnum* const Enum = GetEnum(Property))
	{
		FString Name;
		return ToEnumeratorName(*Enum, Text, Name) && ImportAll(Property, Name, Value, Owner);
	}
	if (Property.IsA<FNameProperty>() && Text.Len() >= NAME_SIZE)
	{
		return false;
	}
	if (Text.IsEmpty() && !IsPlainText(Property))
	{
		Property.ClearValue(Value);
		return true;
	}
	if (ImportAll(Property, ToImportText(Property, Text), Value, Owner))
	{
		return true;
	}
	const FString Reference = ToReference(Property, Text);
	return !Reference.IsEmpty() && ImportAll(Property, Reference, Value, Owner);
}

EOutcome WriteValue(const FProperty& Property, const TSharedPtr<FJsonValue>& Value, void* Target, UObject& Owner);

const FProperty* FindMember(const FStructProperty& Property, const FString& Name)
{
	const FProperty* const Member = Property.Struct ? Property.Struct->FindPropertyByName(FName(*Name)) : nullptr;
	return Member && !Member->HasAnyPropertyFlags(CPF_EditConst) ? Member : nullptr;
}

EOutcome WriteMembers(const FStructProperty& Property, const FJsonObject& Object, void* Target, UObject& Owner)
{
	for (const auto& Pair : Object.Values)
	{
		const FProperty* Member = FindMember(Property, Pair.Key);
		void* Container = Target;
		if (!Member && IsSlateColor(Property) && IsColorField(Pair.Key))
		{
			const FStructProperty* const Color = CastField<FStructProperty>(
				Property.Struct->FindPropertyByName(TEXT("SpecifiedColor")));
			Member = Color ? FindMember(*Color, Pair.Key) : nullptr;
			Container = Member ? Color->ContainerPtrToValuePtr<void>(Target) : nullptr;
		}
		if (!Member)
		{
			return EOutcome::UnknownField;
		}
		const EOutcome Outcome = WriteValue(
			*Member, Pair.Value, Member->ContainerPtrToValuePtr<void>(Container), Owner);
		if (Outcome != EOutcome::Done)
		{
			return Outcome;
		}
	}
	return EOutcome::Done;
}

EOutcome WriteElements(
	const FArrayProperty& Property, const TArray<TSharedPtr<FJsonValue>>& Values, void* Target, UObject& Owner)
{
	FScriptArrayHelper Elements(&Property, Target);
	Elements.EmptyValues();
	for (const TSharedPtr<FJsonValue>& Value : Values)
	{
		const int32 Index = Elements.AddValue();
		const EOutcome Outcome = WriteValue(*Property.Inner, Value, Elements.GetRawPtr(Index), Owner);
		if (Outcome != EOutcome::Done)
		{
			return Outcome;
		}
	}
	return EOutcome::Done;
}

EOutcome WriteValue(const FProperty& Property, const TSharedPtr<FJsonValue>& Value, void* Target, UObject& Owner)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	const FStructProperty* const Struct = CastField<FStructProperty>(&Property);
	if (Struct && Value && Value->TryGetObject(Object))
	{
		return WriteMembers(*Struct, **Object, Target, Owner);
	}
	const TArray<TSharedPtr<FJsonValue>>* Values = nullptr;
	const FArrayProperty* const Array = CastField<FArrayProperty>(&Property);
	if (Array && Value && Value->TryGetArray(Values))
	{
		return WriteElements(*Array, *Values, Target, Owner);
	}
	FString Text;
	const bool bWritten = Value && ToText(*Value, Text) && ImportWhole(Property, Text, Target, Owner);
	return bWritten ? EOutcome::Done : EOutcome::BadValue;
}

/** Lets Write work on a copy of the object's value, which takes its place when Write succeeds. */
EOutcome Change(UObject& Object, const FProperty& Property, TFunctionRef<EOutcome(void*)> Write)
{
	void* const Value = Property.ContainerPtrToValuePtr<void>(&Object);
	const FScratch Scratch(Property, Value);
	const EOutcome Outcome = Write(Scratch.Get());
	if (Outcome == EOutcome::Done)
	{
		FProperty* const Changed = const_cast<FProperty*>(&Property);
		Object.PreEditChange(Changed);
		Property.CopyCompleteValue(Value, Scratch.Get());
		FPropertyChangedEvent Event(Changed);
		Object.PostEditChangeProperty(Event);
	}
	return Outcome;
}

EOutcome ToOutcome(bool bWritten)
{
	return bWritten ? EOutcome::Done : EOutcome::BadValue;
}
} // namespace

bool ToText(const FJsonValue& Value, FString& OutText)
{
	bool bValue = false;
	double Number = 0.0;
	if (MorvaneJson::TryGetBool(Value, bValue))
	{
		OutText = bValue ? TEXT("True") : TEXT("False");
		return true;
	}
	if (MorvaneJson::TryGetNumber(Value, Number))
	{
		OutText = FString::SanitizeFloat(Number, 0);
		return true;
	}
	return MorvaneJson::TryGetString(Value, OutText);
}

bool IsEditable(const FProperty& Property)
{
	// An instanced reference is the object's own part, such as a widget's slot: it changes with the tree alone.
	return Property.HasAnyPropertyFlags(CPF_Edit)
		&& !Property.HasAnyPropertyFlags(CPF_EditConst | CPF_InstancedReference);
}

bool SetText(UObject& Object, const FProperty& Property, const FString& Text)
{
	return Change(Object, Property, [&](void* Value) { return ToOutcome(ImportWhole(Property, Text, Value, Object)); })
		== EOutcome::Done;
}

bool SetMemberText(UObject& Object, const FProperty& Outer, const FProperty& Inner, const FString& Text)
{
	return Change(Object, Outer,
			   [&](void* Value)
			   { return ToOutcome(ImportWhole(Inner, Text, Inner.ContainerPtrToValuePtr<void>(Value), Object)); })
		== EOutcome::Done;
}

EOutcome SetObject(UObject& Object, const FProperty& Property, const FJsonObject& Value)
{
	const FStructProperty* const Struct = CastField<FStructProperty>(&Property);
	return Struct ? Change(Object, Property, [&](void* Target) { return WriteMembers(*Struct, Value, Target, Object); })
				  : EOutcome::UnknownField;
}

EOutcome SetMemberObject(UObject& Object, const FProperty& Outer, const FProperty& Inner, const FJsonObject& Value)
{
	const FStructProperty* const Struct = CastField<FStructProperty>(&Inner);
	return Struct ? Change(Object, Outer,
			   [&](void* Target)
			   { return WriteMembers(*Struct, Value, Inner.ContainerPtrToValuePtr<void>(Target), Object); })
				  : EOutcome::UnknownField;
}
} // namespace JsonPropertyValue
