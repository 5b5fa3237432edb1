#include "TestAssets.h"

#include "Misc/PackageName.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/PackageText.h"
#include "UObject/SavePackage.h"
#include "UObject/UnrealType.h"

IMPLEMENT_EDITOR_CLASS(UTestAsset, "/Script/Tests", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UTestSpecialAsset, "/Script/Tests", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UTestBlueprint, "/Script/Tests", CLASS_None)

TArray<FString> UTestAsset::PostLoadOrder;

void UTestAsset::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Count"), &UTestAsset::Count, CPF_Edit);
	Class.Property(TEXT("Title"), &UTestAsset::Title, CPF_Edit);
	Class.Property(TEXT("Label"), &UTestAsset::Label, CPF_Edit);
	Class.Property(TEXT("Where"), &UTestAsset::Where, CPF_Edit);
	Class.Property(TEXT("Lines"), &UTestAsset::Lines, CPF_Edit);
	Class.Property(TEXT("Numbers"), &UTestAsset::Numbers, CPF_Edit);
	Class.Property(TEXT("Link"), &UTestAsset::Link, CPF_Edit);
	Class.Property(TEXT("Links"), &UTestAsset::Links, CPF_Edit);
	Class.Property(TEXT("Scratch"), &UTestAsset::Scratch, CPF_Transient);
}

void UTestSpecialAsset::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Extra"), &UTestSpecialAsset::Extra, CPF_Edit);
}

void UTestBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ParentClass"), &UTestBlueprint::ParentClass);
	Class.Property(TEXT("GeneratedClass"), &UTestBlueprint::GeneratedClass);
	Class.Property(TEXT("Variables"), &UTestBlueprint::Variables);
	Class.Property(TEXT("Other"), &UTestBlueprint::Other);
}

void UTestAsset::PostLoad()
{
	PostLoadOrder.Add(GetName());
}

void UTestAsset::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	for (const FString& Line : Custom)
	{
		Out.Logf(TEXT("%sCustomProperties %s\n"), *FString::ChrN(static_cast<int32>(Indent), TEXT(' ')), *Line);
	}
}

void UTestAsset::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext*)
{
	Custom.Add(SourceText);
}

void UTestBlueprint::PostLoad()
{
	UTestBlueprint* const Parent = ParentClass ? Cast<UTestBlueprint>(ParentClass->ClassGeneratedBy) : nullptr;
	if (Parent)
	{
		Parent->ConditionalPostLoad();
	}
	Rebuild();
}

void UTestBlueprint::Rebuild()
{
	GeneratedClass->ClassGeneratedBy = this;
	GeneratedClass->DestroyMembers();
	GeneratedClass->SetSuperStruct(ParentClass);
	for (const FName Variable : Variables)
	{
		GeneratedClass->AddProperty(new FIntProperty(FFieldVariant(GeneratedClass), Variable, CPF_Edit));
	}
	GeneratedClass->Link();
	GeneratedClass->ResetDefaultObject();
}

namespace TestAssets
{
void Register()
{
	RegisterCoreUObjectClasses();
	FPackageText::RegisterLoader();
	static const bool bRegistered = []
	{
		NativeClass::RegisterNativeClasses(
			{&UTestAsset::StaticClass, &UTestSpecialAsset::StaticClass, &UTestBlueprint::StaticClass});
		return true;
	}();
	static_cast<void>(bRegistered);
}

template <class T>
T* MakeTop(const TCHAR* PackageName)
{
	Register();
	return NewObject<T>(CreatePackage(PackageName), FName(FPackageName::GetShortName(FString(PackageName))),
		static_cast<EObjectFlags>(RF_Public | RF_Standalone));
}

UTestAsset* MakeAsset(const TCHAR* PackageName)
{
	return MakeTop<UTestAsset>(PackageName);
}

UTestBlueprint* MakeBlueprint(const TCHAR* PackageName, UClass* ParentClass, const TArray<FName>& Variables)
{
	UTestBlueprint* const Blueprint = MakeTop<UTestBlueprint>(PackageName);
	Blueprint->ParentClass = ParentClass;
	Blueprint->Variables = Variables;
	Blueprint->GeneratedClass = NewObject<UClass>(
		Blueprint->GetOuter(), FName(Blueprint->GetName() + TEXT("_C")), RF_Public);
	Blueprint->Rebuild();
	return Blueprint;
}

UTestAsset* MakeInner(UObject* Outer, const TCHAR* Name)
{
	return NewObject<UTestAsset>(Outer, FName(Name));
}

static FIntProperty* FindVariable(const UTestBlueprint& Blueprint, const TCHAR* Variable)
{
	return CastField<FIntProperty>(Blueprint.GeneratedClass->FindPropertyByName(Variable));
}

int32 GetDefaultValue(const UTestBlueprint& Blueprint, const TCHAR* Variable)
{
	return FindVariable(Blueprint, Variable)
		->GetPropertyValue_InContainer(Blueprint.GeneratedClass->GetDefaultObject());
}

void SetDefaultValue(UTestBlueprint& Blueprint, const TCHAR* Variable, int32 Value)
{
	FindVariable(Blueprint, Variable)
		->SetPropertyValue_InContainer(Blueprint.GeneratedClass->GetDefaultObject(), Value);
}

void Unload(const TCHAR* PackageName)
{
	if (UPackage* const Package = FindPackage(nullptr, PackageName))
	{
		Package->MarkAsGarbage();
		CollectGarbage();
	}
}

void UnloadGame()
{
	TArray<UObject*> Packages;
	GetObjectsOfClass(UPackage::StaticClass(), Packages);
	for (UObject* const Package : Packages)
	{
		if (Package->GetName().StartsWith(TEXT("/Game/")))
		{
			Package->MarkAsGarbage();
		}
	}
	CollectGarbage();
}

FString Save(UObject* Asset, const FString& Filename)
{
	FSavePackageArgs Args;
	Args.TopLevelFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);
	return UPackage::Save(Asset->GetOutermost(), Asset, *Filename, Args).ErrorMessage;
}

FString Save(UObject* Asset)
{
	return Save(Asset,
		FPackageName::LongPackageNameToFilename(
			Asset->GetOutermost()->GetName(), FPackageName::GetAssetPackageExtension()));
}
} // namespace TestAssets
