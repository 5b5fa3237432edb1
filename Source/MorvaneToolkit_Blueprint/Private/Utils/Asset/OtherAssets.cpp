#include "Utils/Asset/OtherAssets.h"

#include "AssetOperationBase.h"
#include "EdGraph/EdGraphPin.h"
#include "PinTypeText.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

namespace OtherAssetsText
{
/** More names than anyone reads in a sentence. */
constexpr int32 MostNames = 40;

static FString Join(TArray<FString> Names)
{
	const int32 NumMore = Names.Num() - MostNames;
	if (NumMore > 0)
	{
		Names.SetNum(MostNames);
		Names.Add(FString::Printf(TEXT("%d more"), NumMore));
	}
	return FString::Join(Names, TEXT(", "));
}

static FString DescribeEnum(const UEnum& Enum)
{
	TArray<FString> Entries;
	// The last one is the engine's own mark of the end.
	for (int32 Index = 0; Index < Enum.NumEnums() - 1; ++Index)
	{
		Entries.Add(Enum.GetDisplayNameTextByIndex(Index).ToString());
	}
	return FString::Printf(
		TEXT("Its entries are %s. A type takes it as sub_category_object of the category enum."), *Join(Entries));
}

static FString DescribeStruct(const UScriptStruct& Struct)
{
	TArray<FString> Members;
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		FEdGraphPinType Type;
		FAssetOperationBase::ConvertPropertyToEdGraphPinType(*It, Type);
		Members.Add(FString::Printf(TEXT("%s (%s)"), *It->GetDisplayNameText().ToString(), *PinTypeText::Write(Type)));
	}
	return FString::Printf(
		TEXT(
			"Its members are %s. A type takes it as sub_category_object of the category struct; Make %s and Break %s are its nodes."),
		*Join(Members), *Struct.GetName(), *Struct.GetName());
}

/** The struct of a table's rows; null for what is no table. */
static const UObject* FindRowStruct(const UObject& Asset)
{
	static const FName RowStruct(TEXT("RowStruct"));
	const FObjectProperty* const Property = CastField<FObjectProperty>(Asset.GetClass()->FindPropertyByName(RowStruct));
	return Property ? Property->GetObjectPropertyValue_InContainer(&Asset) : nullptr;
}
} // namespace OtherAssetsText

FString OtherAssets::Describe(const FString& Path)
{
	const FString Resolved = FAssetOperationBase::ResolveBlueprintPath(Path);
	const UObject* const Loaded = Resolved.Contains(TEXT("/"))
		? StaticLoadObject(UObject::StaticClass(), nullptr, *Resolved, nullptr, LOAD_Quiet | LOAD_NoWarn)
		: nullptr;
	if (!Loaded)
	{
		return FString();
	}
	const UObject& Asset = *Loaded;
	FString Text = FString::Printf(
		TEXT("%s is a %s and no Blueprint. "), *Asset.GetPathName(), *Asset.GetClass()->GetName());
	const UEnum* const Enum = Cast<UEnum>(&Asset);
	const UScriptStruct* const Struct = Cast<UScriptStruct>(&Asset);
	if (Enum || Struct)
	{
		return Text + (Enum ? OtherAssetsText::DescribeEnum(*Enum) : OtherAssetsText::DescribeStruct(*Struct));
	}
	const UObject* const Row = OtherAssetsText::FindRowStruct(Asset);
	return Text
		+ (Row ? FString::Printf(TEXT("Its rows are %s; the node Get Data Table Row reads them."), *Row->GetPathName())
			   : FString(TEXT("No tool shows what is in it; pins, variables and properties take its path.")));
}
