#include "BlueprintBuilder.h"

#include "EdGraphSchema_K2.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Logging/TokenizedMessage.h"
#include "Misc/PackageName.h"
#include "Session/EditorModules.h"
#include "Standalone/Project.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"

#include <gtest/gtest.h>

#include <iostream>

FBlueprintBuilder::FBlueprintBuilder(const TCHAR* ParentPath)
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	FString Error;
	EXPECT_TRUE(FProject::Open(Project.Get(), Error)) << ToStd(Error);
	UClass* const Parent = FindObject<UClass>(nullptr, ParentPath ? ParentPath : TEXT("/Script/Engine.Actor"));
	EXPECT_NE(Parent, nullptr);
	UPackage* const Package = CreatePackage(TEXT("/Game/Tests/BP_Test"));
	Blueprint = FKismetEditorUtilities::CreateBlueprint(Parent, Package, TEXT("BP_Test"), BPTYPE_Normal);
	EXPECT_TRUE(Save());
}

FBlueprintBuilder::~FBlueprintBuilder()
{
	if (UPackage* const Package = FindPackage(nullptr, *Path()))
	{
		Package->MarkAsGarbage();
	}
	FProject::Close();
	CollectGarbage();
}

FString FBlueprintBuilder::Path() const
{
	return TEXT("/Game/Tests/BP_Test");
}

FGraphBuilder FBlueprintBuilder::EventGraph() const
{
	return FGraphBuilder(FBlueprintEditorUtils::FindEventGraph(Blueprint));
}

FGraphBuilder FBlueprintBuilder::Function(const TCHAR* Name) const
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
	return FGraphBuilder(Graph);
}

void FBlueprintBuilder::AddVariable(const TCHAR* Name, const FEdGraphPinType& Type) const
{
	EXPECT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, FName(Name), Type));
}

bool FBlueprintBuilder::Save() const
{
	FSavePackageArgs Args;
	Args.TopLevelFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);
	const FString Filename = FPackageName::LongPackageNameToFilename(Path(), FPackageName::GetAssetPackageExtension());
	return UPackage::Save(Blueprint->GetOutermost(), Blueprint, *Filename, Args).IsSuccessful();
}

bool FBlueprintBuilder::Compiles() const
{
	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
	for (const TSharedRef<FTokenizedMessage>& Message : Log.Messages)
	{
		if (Message->GetSeverity() == EMessageSeverity::Error)
		{
			std::cerr << ToStd(Message->ToText().ToString()) << '\n';
		}
	}
	return Log.NumErrors == 0;
}

UBlueprint* FBlueprintBuilder::Reload()
{
	Blueprint->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
	Blueprint = LoadObject<UBlueprint>(nullptr, *Path());
	return Blueprint;
}

FEdGraphPinType FBlueprintBuilder::Type(const FName& Category, UObject* Object)
{
	FEdGraphPinType PinType;
	PinType.PinCategory = Category;
	PinType.PinSubCategoryObject = Object;
	return PinType;
}
