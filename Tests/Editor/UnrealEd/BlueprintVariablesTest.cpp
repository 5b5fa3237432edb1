#include "EditedBlueprint.h"

#include "Engine/SCS_Node.h"
#include "K2Node_AddDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_FunctionEntry.h"
#include "UObject/UnrealType.h"

using namespace EditedBlueprint;

TEST(BlueprintVariables, ARenameTakesEverythingAlong)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Speed"), FBlueprintBuilder::Type(FSchema::PC_Int));
	const FGuid Guid = FUtils::FindMemberVariableGuidByName(Blueprint.Get(), TEXT("Speed"));
	UK2Node_VariableGet* const Get = AddAccess<UK2Node_VariableGet>(Blueprint.EventGraph(), TEXT("Speed"));
	UK2Node_VariableSet* const Set = AddAccess<UK2Node_VariableSet>(Blueprint.EventGraph(), TEXT("Speed"));
	ASSERT_TRUE(GetDefault<FSchema>()->TryCreateConnection(Get->GetValuePin(), Set->GetValuePin()));
	// A value that stands in the class default object alone.
	UClass* const Class = Blueprint->GeneratedClass.Get();
	Class->FindPropertyByName(TEXT("Speed"))
		->ImportText_InContainer(TEXT("7"), Class->GetDefaultObject(), nullptr, PPF_None);
	const FOther User(TEXT("BP_User"), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
	UK2Node_VariableGet* const Foreign = AddAccess<UK2Node_VariableGet>(User.EventGraph(), TEXT("Speed"), Class);
	const FOther Child(TEXT("BP_Child"), Class);
	UK2Node_VariableGet* const Inherited = AddAccess<UK2Node_VariableGet>(Child.EventGraph(), TEXT("Speed"));

	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Speed"), TEXT("Pace"));

	for (const UK2Node_Variable* const Node : {static_cast<UK2Node_Variable*>(Get), static_cast<UK2Node_Variable*>(Set),
			 static_cast<UK2Node_Variable*>(Foreign), static_cast<UK2Node_Variable*>(Inherited)})
	{
		EXPECT_EQ(Node->GetVarName(), FName(TEXT("Pace"))) << ToStd(Node->GetPathName());
		EXPECT_NE(Node->GetValuePin(), nullptr) << ToStd(Node->GetPathName());
	}
	EXPECT_TRUE(Get->GetValuePin()->LinkedTo.Contains(Set->GetValuePin()));
	EXPECT_EQ(FUtils::FindMemberVariableNameByGuid(Blueprint.Get(), Guid), FName(TEXT("Pace")));
	EXPECT_EQ(ToStd(Blueprint->NewVariables[0].FriendlyName), "Pace");
	EXPECT_EQ(DefaultOf(Blueprint.Get(), TEXT("Pace")), "7");
	EXPECT_EQ(DefaultOf(Blueprint.Get(), TEXT("Speed")), "(gone)");
	EXPECT_THAT(FindInconsistencies(*User.Get()), IsEmpty());
	EXPECT_THAT(FindInconsistencies(*Child.Get()), IsEmpty());
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	EXPECT_EQ(DefaultOf(Blueprint.Get(), TEXT("Pace")), "7");
}

TEST(BlueprintVariables, ARenameLeavesWhatOnlyLooksAlike)
{
	FBlueprintBuilder Blueprint;
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	Blueprint.AddVariable(TEXT("Speed"), Int);
	const FOther Stranger(TEXT("BP_Stranger"), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
	ASSERT_TRUE(FUtils::AddMemberVariable(Stranger.Get(), TEXT("Speed"), Int));
	UK2Node_VariableGet* const OfStranger = AddAccess<UK2Node_VariableGet>(
		Blueprint.EventGraph(), TEXT("Speed"), Stranger.Class());
	const FGraphBuilder Function = Blueprint.Function(TEXT("Run"));
	ASSERT_TRUE(FUtils::AddLocalVariable(Blueprint.Get(), Function.Get(), TEXT("Speed"), Int));
	UK2Node_VariableGet* const Local = Add<UK2Node_VariableGet>(Function,
		[](UK2Node_VariableGet& Node)
		{ Node.VariableReference.SetLocalMember(TEXT("Speed"), FString(TEXT("Run")), FGuid()); });
	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Speed"), TEXT("Pace"));
	EXPECT_EQ(OfStranger->GetVarName(), FName(TEXT("Speed")));
	EXPECT_EQ(Local->GetVarName(), FName(TEXT("Speed")));
	FUtils::RemoveMemberVariable(Blueprint.Get(), TEXT("Pace"));
	EXPECT_TRUE(Function.Get()->Nodes.Contains(Local));
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(BlueprintVariables, ATakenNameIsNotGivenToAnotherMember)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Speed"), FBlueprintBuilder::Type(FSchema::PC_Int));
	Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
	Blueprint.Function(TEXT("Open"));
	AddDispatcher(Blueprint.Get(), TEXT("Opened"));
	USCS_Node* const Lamp = AddComponent(Blueprint.Get(), TEXT("/Script/Engine.PointLightComponent"), TEXT("Lamp"));
	ASSERT_NE(FUtils::AddNewTimeline(Blueprint.Get(), TEXT("Fade")), nullptr);
	for (const TCHAR* const Taken : {TEXT("Door"), TEXT("door"), TEXT("Open"), TEXT("Opened"), TEXT("Lamp"),
			 TEXT("Fade"), TEXT("EventGraph"), TEXT("bReplicates"), TEXT("K2_DestroyActor"), TEXT("")})
	{
		FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Speed"), FName(Taken));
		EXPECT_NE(FUtils::FindNewVariableIndex(Blueprint.Get(), TEXT("Speed")), INDEX_NONE) << ToStd(Taken);
		const FString OldLamp = Lamp->GetVariableName().ToString();
		FUtils::RenameComponentMemberVariable(Blueprint.Get(), Lamp, FName(Taken));
		EXPECT_EQ(ToStd(Lamp->GetVariableName().ToString()), ToStd(OldLamp)) << ToStd(Taken);
		EXPECT_FALSE(
			FUtils::RenameTimeline(Blueprint.Get(), TEXT("Fade"), FName(Taken)) && FName(Taken) != TEXT("Fade"))
			<< ToStd(Taken);
	}
	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Speed"), TEXT("SPEED"));
	EXPECT_EQ(ToStd(Blueprint->NewVariables[0].VarName.ToString()), "SPEED") << "another spelling is no other name";
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(BlueprintVariables, AnotherTypeKeepsWhatItCanRead)
{
	struct FCase
	{
		const char* Name;
		FName From;
		const TCHAR* Default;
		FName To;
		const char* Kept;
	};
	const FCase Cases[] = {
		{"a whole number as a real one", FSchema::PC_Int, TEXT("3"), FSchema::PC_Real, "3.000000"},
		{"a number as words", FSchema::PC_Int, TEXT("3"), FSchema::PC_String, "3"},
		{"words that are a number", FSchema::PC_String, TEXT("12"), FSchema::PC_Int, "12"},
		{"words that are none", FSchema::PC_String, TEXT("twelve"), FSchema::PC_Int, "0"},
		{"a truth as a name", FSchema::PC_Boolean, TEXT("true"), FSchema::PC_Name, "True"},
		{"a real number that is not whole", FSchema::PC_Real, TEXT("2.5"), FSchema::PC_Int, "0"},
	};
	for (const FCase& Case : Cases)
	{
		FBlueprintBuilder Blueprint;
		const auto TypeOf = [](FName Category)
		{
			FEdGraphPinType Type = FBlueprintBuilder::Type(Category);
			Type.PinSubCategory = Category == FSchema::PC_Real ? FSchema::PC_Double : NAME_None;
			return Type;
		};
		ASSERT_TRUE(FUtils::AddMemberVariable(Blueprint.Get(), TEXT("Value"), TypeOf(Case.From), Case.Default));
		UK2Node_VariableGet* const Get = AddAccess<UK2Node_VariableGet>(Blueprint.EventGraph(), TEXT("Value"));
		FUtils::ChangeMemberVariableType(Blueprint.Get(), TEXT("Value"), TypeOf(Case.To));
		EXPECT_EQ(DefaultOf(Blueprint.Get(), TEXT("Value")), Case.Kept) << Case.Name;
		EXPECT_EQ(Get->GetValuePin()->PinType.PinCategory, Case.To) << Case.Name;
		EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << Case.Name;
	}
}

TEST(BlueprintVariables, FlagsFollowTheType)
{
	const FBlueprintBuilder Blueprint;
	UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	UClass* const Texture = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Texture2D"));
	Blueprint.AddVariable(TEXT("Target"), FBlueprintBuilder::Type(FSchema::PC_Object, Actor));
	const FBPVariableDescription& Target = Blueprint->NewVariables[0];
	EXPECT_NE(Target.PropertyFlags & CPF_DisableEditOnTemplate, 0u) << "a default cannot name an actor of a level";
	FUtils::ChangeMemberVariableType(
		Blueprint.Get(), TEXT("Target"), FBlueprintBuilder::Type(FSchema::PC_Object, Texture));
	EXPECT_EQ(Target.PropertyFlags & CPF_DisableEditOnTemplate, 0u);

	FEdGraphPinType Self = FBlueprintBuilder::Type(FSchema::PC_Object);
	Self.PinSubCategory = FSchema::PSC_Self;
	Blueprint.AddVariable(TEXT("Twin"), Self);
	EXPECT_EQ(Blueprint->NewVariables[1].VarType.PinSubCategoryObject.Get(), Blueprint->GeneratedClass.Get());

	FBPVariableDescription& Shared = Blueprint->NewVariables[0];
	Shared.PropertyFlags |= CPF_Net | CPF_RepNotify;
	Shared.RepNotifyFunc = TEXT("OnRep_Target");
	FEdGraphPinType Set = FBlueprintBuilder::Type(FSchema::PC_Int);
	Set.ContainerType = EPinContainerType::Set;
	FUtils::ChangeMemberVariableType(Blueprint.Get(), TEXT("Target"), Set);
	EXPECT_EQ(Shared.PropertyFlags & (CPF_Net | CPF_RepNotify), 0u) << "sets are not replicated";
	EXPECT_TRUE(Shared.RepNotifyFunc.IsNone());
}

TEST(BlueprintVariables, ARemovedVariableLeavesNothingBehind)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Velvet"), FBlueprintBuilder::Type(FSchema::PC_Int));
	AddAccess<UK2Node_VariableGet>(Blueprint.EventGraph(), TEXT("Velvet"));
	AddAccess<UK2Node_VariableSet>(Blueprint.Function(TEXT("Run")), TEXT("Velvet"));
	EXPECT_TRUE(FUtils::IsVariableUsed(Blueprint.Get(), TEXT("Velvet")));
	FUtils::BulkRemoveMemberVariables(Blueprint.Get(), {TEXT("Velvet"), TEXT("NoSuch")});
	EXPECT_FALSE(FUtils::IsVariableUsed(Blueprint.Get(), TEXT("Velvet")));
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	EXPECT_EQ(ReadBlueprintFile(Blueprint).find("Velvet"), std::string::npos);
}

TEST(BlueprintVariables, ADispatcherIsRenamedAndRemovedWhole)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Signature = AddDispatcher(Blueprint.Get(), TEXT("Opened"));
	FUtils::GetEntryNode(Signature)->CreateUserDefinedPin(
		TEXT("Width"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	UK2Node_CallDelegate* const Call = Add<UK2Node_CallDelegate>(Blueprint.EventGraph(),
		[](UK2Node_CallDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("Opened")); });
	UK2Node_AddDelegate* const Bind = Add<UK2Node_AddDelegate>(Blueprint.EventGraph(),
		[](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("Opened")); });
	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Opened"), TEXT("Unlocked"));
	EXPECT_EQ(ToStd(Signature->GetName()), "Unlocked");
	EXPECT_EQ(Call->GetPropertyName(), FName(TEXT("Unlocked")));
	EXPECT_NE(Call->FindPin(TEXT("Width")), nullptr);
	EXPECT_EQ(Bind->GetDelegatePin()->PinType.PinSubCategoryMemberReference.MemberName,
		FName(TEXT("Unlocked__DelegateSignature")));
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	EXPECT_EQ(ReadBlueprintFile(Blueprint).find("Opened"), std::string::npos);

	FUtils::RemoveGraphs(Blueprint.Get(), {});
	FUtils::RemoveMemberVariable(Blueprint.Get(), TEXT("Unlocked"));
	EXPECT_TRUE(Blueprint->DelegateSignatureGraphs.IsEmpty());
}

TEST(BlueprintVariables, ARenamedDispatcherLeavesItsNamesakesAlone)
{
	FBlueprintBuilder Blueprint;
	AddDispatcher(Blueprint.Get(), TEXT("Opened"));
	const FOther Other(TEXT("BP_Namesake"), Blueprint->ParentClass.Get());
	AddDispatcher(Other.Get(), TEXT("Opened"));
	// A variable makes the other Blueprint one that depends on the renamed dispatcher's.
	FUtils::AddMemberVariable(
		Other.Get(), TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Object, Blueprint->GeneratedClass.Get()));
	UK2Node_AddDelegate* const Own = Add<UK2Node_AddDelegate>(
		Other.EventGraph(), [](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("Opened")); });
	UClass* const Class = Blueprint->GeneratedClass.Get();
	UK2Node_AddDelegate* const Foreign = Add<UK2Node_AddDelegate>(Other.EventGraph(),
		[Class](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetExternalMember(TEXT("Opened"), Class); });
	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Opened"), TEXT("Unlocked"));
	const auto SignatureOf = [](const UK2Node_AddDelegate& Node)
	{ return ToStd(Node.GetDelegatePin()->PinType.PinSubCategoryMemberReference.MemberName.ToString()); };
	EXPECT_EQ(SignatureOf(*Own), "Opened__DelegateSignature");
	EXPECT_EQ(SignatureOf(*Foreign), "Unlocked__DelegateSignature");
}

TEST(BlueprintVariables, AChildGivesUpANameThatItsParentTakes)
{
	struct FCase
	{
		const char* Name;
		void (*Take)(UBlueprint* Parent);
	};
	for (const FCase& Case :
		{FCase{"variable",
			 [](UBlueprint* Parent)
			 { FUtils::AddMemberVariable(Parent, TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean)); }},
			FCase{"renamed variable",
				[](UBlueprint* Parent)
				{
					FUtils::AddMemberVariable(Parent, TEXT("Gate"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
					FUtils::RenameMemberVariable(Parent, TEXT("Gate"), TEXT("Door"));
				}},
			FCase{"timeline", [](UBlueprint* Parent) { FUtils::AddNewTimeline(Parent, TEXT("Door")); }},
			FCase{"function", [](UBlueprint* Parent) { AddFunction(Parent, TEXT("Door")); }}})
	{
		FBlueprintBuilder Blueprint;
		const FOther Child(TEXT("BP_Child"), Blueprint->GeneratedClass.Get());
		ASSERT_TRUE(
			FUtils::AddMemberVariable(Child.Get(), TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Int), TEXT("4")));
		UK2Node_VariableGet* const Get = AddAccess<UK2Node_VariableGet>(Child.EventGraph(), TEXT("Door"));
		Case.Take(Blueprint.Get());
		EXPECT_EQ(FUtils::FindNewVariableIndex(Child.Get(), TEXT("Door")), INDEX_NONE) << Case.Name;
		EXPECT_EQ(Get->GetVarName(), Child->NewVariables[0].VarName) << Case.Name;
		EXPECT_EQ(DefaultOf(Child.Get(), *Child->NewVariables[0].VarName.ToString()), "4") << Case.Name;
		EXPECT_THAT(FindInconsistencies(*Child.Get()), IsEmpty()) << Case.Name;
	}
}

TEST(BlueprintVariables, LocalOnesFollowTheirNameTypeAndFunction)
{
	FBlueprintBuilder Blueprint;
	const FGraphBuilder Function = Blueprint.Function(TEXT("Count"));
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	FUtils::GetEntryNode(Function.Get())->CreateUserDefinedPin(TEXT("Limit"), Int, EGPD_Output);
	EXPECT_FALSE(FUtils::AddLocalVariable(Blueprint.Get(), Function.Get(), TEXT("Limit"), Int)) << "a parameter's name";
	ASSERT_TRUE(FUtils::AddLocalVariable(Blueprint.Get(), Function.Get(), TEXT("Sum"), Int, TEXT("3")));
	UK2Node_VariableGet* const Get = Add<UK2Node_VariableGet>(Function,
		[](UK2Node_VariableGet& Node)
		{ Node.VariableReference.SetLocalMember(TEXT("Sum"), FString(TEXT("Count")), FGuid()); });
	const auto Scope = [&Blueprint](const TCHAR* Name)
	{
		FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
		return Blueprint->SkeletonGeneratedClass.Get()->FindFunctionByName(FName(Name));
	};
	FUtils::RenameLocalVariable(Blueprint.Get(), Scope(TEXT("Count")), TEXT("Sum"), TEXT("Limit"));
	EXPECT_EQ(Get->GetVarName(), FName(TEXT("Sum"))) << "a parameter's name";
	FUtils::RenameLocalVariable(Blueprint.Get(), Scope(TEXT("Count")), TEXT("Sum"), TEXT("Total"));
	EXPECT_EQ(Get->GetVarName(), FName(TEXT("Total")));
	EXPECT_TRUE(FUtils::IsVariableUsed(Blueprint.Get(), TEXT("Total"), Function.Get()));
	EXPECT_FALSE(FUtils::IsVariableUsed(Blueprint.Get(), TEXT("Total"))) << "as a member";
	FUtils::RenameGraph(Function.Get(), TEXT("Tally"));
	EXPECT_EQ(ToStd(Get->VariableReference.GetMemberScopeName()), "Tally");
	FUtils::ChangeLocalVariableType(
		Blueprint.Get(), Scope(TEXT("Tally")), TEXT("Total"), FBlueprintBuilder::Type(FSchema::PC_String));
	EXPECT_EQ(Get->GetValuePin()->PinType.PinCategory, FSchema::PC_String);
	EXPECT_EQ(
		ToStd(FUtils::FindLocalVariable(Blueprint.Get(), Scope(TEXT("Tally")), TEXT("Total"))->DefaultValue), "3");
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	FUtils::RemoveLocalVariable(Blueprint.Get(), Scope(TEXT("Tally")), TEXT("Total"));
	TArray<UK2Node_VariableGet*> Gets;
	FUtils::GetAllNodesOfClass(Blueprint.Get(), Gets);
	EXPECT_TRUE(Gets.IsEmpty());
}
