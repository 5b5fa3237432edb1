#include "Standalone/Catalogue.h"

#include "Session/EditorModules.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace CatalogueTests
{
class Catalogue : public testing::Test
{
protected:
	// All of the editor: a native class must be known before data of its path is asked for.
	static void SetUpTestSuite() { EditorModules::StartEditor(); }

	template <class T>
	static T* Find(const TCHAR* Path)
	{
		T* const Found = FindObject<T>(nullptr, Path);
		EXPECT_NE(Found, nullptr) << TCHAR_TO_UTF8(Path);
		return Found;
	}

	static UFunction* Function(const TCHAR* ClassPath, const TCHAR* Name)
	{
		const UClass* const Class = Find<UClass>(ClassPath);
		UFunction* const Found = Class ? Class->FindFunctionByName(FName(Name), EIncludeSuperFlag::ExcludeSuper)
									   : nullptr;
		EXPECT_NE(Found, nullptr) << TCHAR_TO_UTF8(ClassPath) << " " << TCHAR_TO_UTF8(Name);
		return Found;
	}
};

static void AppendIf(std::string& Text, const FProperty& Property, uint64 Flag, const char* Word)
{
	if (Property.HasAnyPropertyFlags(Flag))
	{
		Text += Word;
	}
}

/** "const ref FVector Name = default": how the parameter crosses the call, its C++ type, its name and the default of
 * its pin. */
static std::string DescribeParameter(const UFunction& Function, const FProperty& Param)
{
	std::string Text;
	AppendIf(Text, Param, CPF_ReturnParm, "return ");
	const bool bByReference = Param.HasAnyPropertyFlags(CPF_ReferenceParm);
	Text += bByReference																	   ? "ref "
		: Param.HasAnyPropertyFlags(CPF_OutParm) && !Param.HasAnyPropertyFlags(CPF_ReturnParm) ? "out "
																							   : "";
	AppendIf(Text, Param, CPF_ConstParm, "const ");
	FString Extended;
	const FString Type = Param.GetCPPType(&Extended);
	Text += ToUtf8((Type + Extended).TrimEnd()) + " " + ToUtf8(Param.GetName());
	const FString* const Default = Function.FindMetaData(FName(TEXT("CPP_Default_") + Param.GetName()));
	return Default ? Text + " = " + ToUtf8(*Default) : Text;
}

static std::vector<std::string> DescribeParameters(const UFunction& Function)
{
	std::vector<std::string> Lines;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Lines.push_back(DescribeParameter(Function, **It));
	}
	return Lines;
}

/** Whether the property knows the class, struct, enum or signature that its kind needs, all the way into containers. */
static bool IsComplete(const FProperty* Property)
{
	if (!Property)
	{
		return false;
	}
	if (const FArrayProperty* const Array = CastField<FArrayProperty>(Property))
	{
		return IsComplete(Array->Inner);
	}
	if (const FSetProperty* const Set = CastField<FSetProperty>(Property))
	{
		return IsComplete(Set->ElementProp);
	}
	if (const FMapProperty* const Map = CastField<FMapProperty>(Property))
	{
		return IsComplete(Map->KeyProp) && IsComplete(Map->ValueProp);
	}
	if (const FClassProperty* const Class = CastField<FClassProperty>(Property))
	{
		return Class->MetaClass != nullptr;
	}
	if (const FSoftClassProperty* const SoftClass = CastField<FSoftClassProperty>(Property))
	{
		return SoftClass->MetaClass != nullptr;
	}
	if (const FObjectPropertyBase* const Object = CastField<FObjectPropertyBase>(Property))
	{
		return Object->PropertyClass != nullptr;
	}
	if (const FStructProperty* const Struct = CastField<FStructProperty>(Property))
	{
		return Struct->Struct != nullptr;
	}
	if (const FEnumProperty* const Enum = CastField<FEnumProperty>(Property))
	{
		return Enum->Enum != nullptr;
	}
	if (const FInterfaceProperty* const Interface = CastField<FInterfaceProperty>(Property))
	{
		return Interface->InterfaceClass != nullptr;
	}
	if (const FDelegateProperty* const Delegate = CastField<FDelegateProperty>(Property))
	{
		return Delegate->SignatureFunction != nullptr;
	}
	const FMulticastDelegateProperty* const Multicast = CastField<FMulticastDelegateProperty>(Property);
	return !Multicast || Multicast->SignatureFunction != nullptr;
}

static int32 CheckMembers(const UStruct& Struct)
{
	int32 NumProperties = 0;
	for (TFieldIterator<FProperty> It(&Struct, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		EXPECT_TRUE(IsComplete(*It)) << TCHAR_TO_UTF8(*It->GetPathName());
		++NumProperties;
	}
	for (TFieldIterator<UFunction> It(&Struct, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		EXPECT_EQ(CheckMembers(**It), It->NumParms) << TCHAR_TO_UTF8(*It->GetPathName());
	}
	return NumProperties;
}

// First, since the tests below do read members.
TEST_F(Catalogue, NamesParentsAndKindsAreKnownWithoutReadingMembers)
{
	const int32 NumFilled = FCatalogue::Get().GetNumFilled();
	const UClass* const Spot = Find<UClass>(TEXT("/Script/Engine.SpotLightComponent"));
	const UClass* const Scene = Find<UClass>(TEXT("/Script/Engine.SceneComponent"));
	ASSERT_TRUE(Spot && Scene);
	// Another test of the same process may have asked for them already.
	const bool bWasPending = Spot->HasPendingMembers();
	EXPECT_TRUE(Spot->IsChildOf(Scene));
	TArray<UClass*> Derived;
	GetDerivedClasses(Scene, Derived);
	EXPECT_TRUE(Derived.Contains(const_cast<UClass*>(Spot)));
	int32 NumVisited = 0;
	FCatalogue::Get().ForEachPath(
		UField::StaticClass(), [&NumVisited](const FString&, const FString&) { ++NumVisited; });
	EXPECT_GT(NumVisited, 2000);
	EXPECT_EQ(FCatalogue::Get().GetNumFilled(), NumFilled);
	EXPECT_EQ(Spot->HasPendingMembers(), bWasPending);
	EXPECT_NE(Spot->FindFunctionByName(TEXT("SetInnerConeAngle")), nullptr);
	EXPECT_FALSE(Spot->HasPendingMembers());
}

TEST_F(Catalogue, EveryReferenceResolves)
{
	FCatalogue::Get().ForEachPath(UField::StaticClass(),
		[](const FString& Path, const FString& ParentPath)
		{
			const UField* const Field = Cast<UField>(FCatalogue::Get().FindOrCreate(Path));
			ASSERT_NE(Field, nullptr) << TCHAR_TO_UTF8(*Path);
			EXPECT_TRUE(Field->GetPathName().Equals(Path, ESearchCase::CaseSensitive))
				<< TCHAR_TO_UTF8(*Field->GetPathName());
			const UStruct* const Struct = Cast<UStruct>(Field);
			const UStruct* const Super = Struct ? Struct->GetSuperStruct() : nullptr;
			const UClass* const Class = Cast<UClass>(Struct);
			const UScriptStruct* const ScriptStruct = Cast<UScriptStruct>(Struct);
			const bool bFromCode = (Class && Class->IsNative()) || (ScriptStruct && ScriptStruct->GetOps());
			if (!bFromCode)
			{
				EXPECT_EQ(ToUtf8(Super ? Super->GetPathName() : FString()), ToUtf8(ParentPath)) << TCHAR_TO_UTF8(*Path);
			}
			if (Struct)
			{
				CheckMembers(*Struct);
			}
		});
}

TEST_F(Catalogue, SignaturesAreThoseOfTheEngine)
{
	const struct FCase
	{
		const TCHAR* Class;
		const TCHAR* Function;
		std::vector<std::string> Expected;
	} Cases[] = {
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"),
			{"const UObject* WorldContextObject", "FString InString = Hello", "bool bPrintToScreen = true",
				"bool bPrintToLog = true", "FLinearColor TextColor = (R=0.000000,G=0.660000,B=1.000000,A=1.000000)",
				"float Duration = 2.000000", "const FName Key = None"}},
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("Delay"),
			{"const UObject* WorldContextObject", "float Duration = 0.2", "FLatentActionInfo LatentInfo"}},
		{TEXT("/Script/Engine.KismetMathLibrary"), TEXT("Add_DoubleDouble"),
			{"double A", "double B = 1.000000", "return double ReturnValue"}},
		{TEXT("/Script/Engine.KismetMathLibrary"), TEXT("MakeRotator"),
			{"float Roll", "float Pitch", "float Yaw", "return FRotator ReturnValue"}},
		{TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Add"),
			{"ref const TArray<int32> TargetArray", "ref const int32 NewItem", "return int32 ReturnValue"}},
		{TEXT("/Script/Engine.Actor"), TEXT("K2_SetActorLocation"),
			{"FVector NewLocation", "bool bSweep", "out FHitResult SweepHitResult", "bool bTeleport",
				"return bool ReturnValue"}},
		{TEXT("/Script/Engine.Actor"), TEXT("ReceiveTick"), {"float DeltaSeconds"}},
		{TEXT("/Script/Engine.GameplayStatics"), TEXT("GetAllActorsOfClass"),
			{"const UObject* WorldContextObject", "TSubclassOf<AActor> ActorClass", "out TArray<AActor*> OutActors"}},
		{TEXT("/Script/UMG.UserWidget"), TEXT("OnMouseButtonDown"),
			{"FGeometry MyGeometry", "ref const FPointerEvent MouseEvent", "return FEventReply ReturnValue"}},
		{TEXT("/Script/EditorScriptingUtilities.EditorDialogLibrary"), TEXT("ShowMessage"),
			{"ref const FText Title", "ref const FText Message", "TEnumAsByte<EAppMsgType::Type> MessageType",
				"TEnumAsByte<EAppReturnType::Type> DefaultValue = Type::No",
				"EAppMsgCategory MessageCategory = Warning", "return TEnumAsByte<EAppReturnType::Type> ReturnValue"}},
	};
	for (const FCase& Case : Cases)
	{
		const UFunction* const Found = Function(Case.Class, Case.Function);
		ASSERT_NE(Found, nullptr);
		EXPECT_EQ(DescribeParameters(*Found), Case.Expected) << TCHAR_TO_UTF8(Case.Function);
	}
}

TEST_F(Catalogue, FunctionsCarryTheirFlags)
{
	constexpr uint32 Interesting = FUNC_Static | FUNC_Native | FUNC_Event | FUNC_BlueprintCallable | FUNC_BlueprintEvent
		| FUNC_BlueprintPure | FUNC_Const | FUNC_HasOutParms | FUNC_Public;
	const struct FCase
	{
		const TCHAR* Class;
		const TCHAR* Function;
		uint32 Expected;
	} Cases[] = {
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"),
			FUNC_Static | FUNC_Native | FUNC_BlueprintCallable | FUNC_Public},
		{TEXT("/Script/Engine.KismetMathLibrary"), TEXT("Sin"),
			FUNC_Static | FUNC_Native | FUNC_BlueprintCallable | FUNC_BlueprintPure | FUNC_Public},
		{TEXT("/Script/Engine.Actor"), TEXT("ReceiveBeginPlay"), FUNC_Event | FUNC_BlueprintEvent | FUNC_Public},
		{TEXT("/Script/UMG.UserWidget"), TEXT("OnAnimationFinished"),
			FUNC_Native | FUNC_Event | FUNC_BlueprintEvent | FUNC_Public},
		{TEXT("/Script/Engine.Actor"), TEXT("GetActorBounds"),
			FUNC_Native | FUNC_BlueprintCallable | FUNC_BlueprintPure | FUNC_Const | FUNC_HasOutParms | FUNC_Public},
	};
	for (const FCase& Case : Cases)
	{
		const UFunction* const Found = Function(Case.Class, Case.Function);
		ASSERT_NE(Found, nullptr);
		EXPECT_EQ(Found->FunctionFlags & Interesting, Case.Expected) << TCHAR_TO_UTF8(Case.Function);
	}
	const UDelegateFunction* const Signature = Find<UDelegateFunction>(
		TEXT("/Script/Engine.ActorHitSignature__DelegateSignature"));
	ASSERT_NE(Signature, nullptr);
	EXPECT_TRUE(Signature->HasAllFunctionFlags(static_cast<EFunctionFlags>(FUNC_Delegate | FUNC_MulticastDelegate)));
	EXPECT_EQ(Signature->NumParms, 4);
}

TEST_F(Catalogue, MetadataStandsUnderTheKeysThatNodesRead)
{
	const struct FCase
	{
		const TCHAR* Class;
		const TCHAR* Function;
		const TCHAR* Key;
		const char* Expected;
	} Cases[] = {
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("Delay"), TEXT("LatentInfo"), "LatentInfo"},
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("Delay"), TEXT("WorldContext"), "WorldContextObject"},
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("LineTraceSingle"), TEXT("AdvancedDisplay"),
			"TraceColor,TraceHitColor,DrawTime"},
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("LineTraceSingle"), TEXT("AutoCreateRefTerm"),
			"ActorsToIgnore"},
		{TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("K2_SetTimer"), TEXT("DefaultToSelf"), "Object"},
		{TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Add"), TEXT("ArrayParm"), "TargetArray"},
		{TEXT("/Script/Engine.BlueprintMapLibrary"), TEXT("Map_Find"), TEXT("MapParam"), "TargetMap"},
		{TEXT("/Script/Engine.GameplayStatics"), TEXT("GetAllActorsOfClass"), TEXT("DeterminesOutputType"),
			"ActorClass"},
		{TEXT("/Script/Engine.KismetMathLibrary"), TEXT("Add_IntInt"), TEXT("CommutativeAssociativeBinaryOperator"),
			"true"},
		{TEXT("/Script/Engine.Actor"), TEXT("K2_GetActorLocation"), TEXT("DisplayName"), "Get Actor Location"},
		{TEXT("/Script/Engine.Actor"), TEXT("AddComponent"), TEXT("BlueprintInternalUseOnly"), "true"},
		{TEXT("/Script/AIModule.BTFunctionLibrary"), TEXT("SetBlackboardValueAsVector"), TEXT("HidePin"), "NodeOwner"},
	};
	for (const FCase& Case : Cases)
	{
		const UFunction* const Found = Function(Case.Class, Case.Function);
		ASSERT_NE(Found, nullptr);
		EXPECT_EQ(ToUtf8(Found->GetMetaData(FName(Case.Key))), Case.Expected)
			<< TCHAR_TO_UTF8(Case.Function) << " " << TCHAR_TO_UTF8(Case.Key);
	}
	EXPECT_EQ(ToUtf8(Find<UScriptStruct>(TEXT("/Script/Engine.HitResult"))->GetMetaData(TEXT("HasNativeMake"))),
		"/Script/Engine.GameplayStatics:MakeHitResult");
}

TEST_F(Catalogue, EachClassAnswersForItselfWhetherBlueprintsMayUseIt)
{
	const struct FCase
	{
		const TCHAR* Class;
		bool bParent;
		bool bVariable;
	} Cases[] = {
		{TEXT("/Script/Engine.Actor"), true, true},
		{TEXT("/Script/Engine.WorldSettings"), false, true},
		{TEXT("/Script/AIModule.BTTaskNode"), false, true},
		{TEXT("/Script/AIModule.BTTask_BlueprintBase"), true, true},
		{TEXT("/Script/UMG.Button"), false, true},
		{TEXT("/Script/Engine.Engine"), false, false},
	};
	for (const FCase& Case : Cases)
	{
		const UClass* const Class = Find<UClass>(Case.Class);
		ASSERT_NE(Class, nullptr);
		EXPECT_TRUE(Class->HasMetaData(TEXT("IsBlueprintBase"))) << "inherited answers would be wrong";
		EXPECT_EQ(Class->GetBoolMetaData(TEXT("IsBlueprintBase")), Case.bParent) << TCHAR_TO_UTF8(Case.Class);
		EXPECT_EQ(Class->GetBoolMetaData(TEXT("BlueprintType")), Case.bVariable) << TCHAR_TO_UTF8(Case.Class);
	}
}

TEST_F(Catalogue, ParentChainsAreComplete)
{
	const struct FCase
	{
		const TCHAR* Path;
		const char* Expected;
	} Cases[] = {
		{TEXT("/Script/Engine.Character"), "Character < Pawn < Actor < Object"},
		{TEXT("/Script/UMG.Button"), "Button < ContentWidget < PanelWidget < Widget < Visual < Object"},
		{TEXT("/Script/Engine.SpotLightComponent"),
			"SpotLightComponent < PointLightComponent < LocalLightComponent < LightComponent < LightComponentBase < SceneComponent < "
			"ActorComponent < Object"},
		{TEXT("/Script/AIModule.BTTask_BlueprintBase"), "BTTask_BlueprintBase < BTTaskNode < BTNode < Object"},
		{TEXT("/Script/Engine.KismetMathLibrary"), "KismetMathLibrary < BlueprintFunctionLibrary < Object"},
	};
	for (const FCase& Case : Cases)
	{
		std::string Chain;
		for (const UClass* Class = Find<UClass>(Case.Path); Class; Class = Class->GetSuperClass())
		{
			Chain += (Chain.empty() ? "" : " < ") + ToUtf8(Class->GetName());
		}
		EXPECT_EQ(Chain, Case.Expected);
	}
}

TEST_F(Catalogue, PropertiesSayWhatBlueprintsAndDesignersMayDo)
{
	constexpr uint64 Interesting = CPF_Edit | CPF_EditConst | CPF_BlueprintVisible | CPF_BlueprintReadOnly
		| CPF_BlueprintAssignable | CPF_ExposeOnSpawn;
	const struct FCase
	{
		const TCHAR* Class;
		const TCHAR* Property;
		uint64 Expected;
	} Cases[] = {
		{TEXT("/Script/Engine.CharacterMovementComponent"), TEXT("MaxWalkSpeed"), CPF_Edit | CPF_BlueprintVisible},
		{TEXT("/Script/Engine.Character"), TEXT("CharacterMovement"),
			CPF_Edit | CPF_EditConst | CPF_BlueprintVisible | CPF_BlueprintReadOnly},
		{TEXT("/Script/UMG.Slider"), TEXT("OnValueChanged"), CPF_BlueprintAssignable | CPF_BlueprintVisible},
		{TEXT("/Script/UMG.Slider"), TEXT("ValueDelegate"), CPF_None},
	};
	for (const FCase& Case : Cases)
	{
		const UClass* const Class = Find<UClass>(Case.Class);
		const FProperty* const Property = Class ? Class->FindPropertyByName(FName(Case.Property)) : nullptr;
		ASSERT_NE(Property, nullptr) << TCHAR_TO_UTF8(Case.Property);
		EXPECT_EQ(Property->PropertyFlags & Interesting, Case.Expected) << TCHAR_TO_UTF8(Case.Property);
	}
}

TEST_F(Catalogue, EnumsNameTheirValuesInAllForms)
{
	const struct FCase
	{
		const TCHAR* Enum;
		UEnum::ECppForm Form;
		const TCHAR* Value;
		const char* FullName;
		const char* Shown;
		const char* Max;
	} Cases[] = {
		{TEXT("/Script/Engine.ECollisionChannel"), UEnum::ECppForm::Regular, TEXT("ECC_WorldStatic"), "ECC_WorldStatic",
			"WorldStatic", "ECC_MAX"},
		{TEXT("/Script/Engine.EInputEvent"), UEnum::ECppForm::Regular, TEXT("IE_DoubleClick"), "IE_DoubleClick",
			"Double Click", "IE_MAX"},
		{TEXT("/Script/Engine.ETimelineDirection"), UEnum::ECppForm::Namespaced, TEXT("Backward"),
			"ETimelineDirection::Backward", "Backward", "ETimelineDirection::ETimelineDirection_MAX"},
		{TEXT("/Script/UMG.ESlateVisibility"), UEnum::ECppForm::EnumClass, TEXT("SelfHitTestInvisible"),
			"ESlateVisibility::SelfHitTestInvisible", "Not Hit-Testable (Self Only)",
			"ESlateVisibility::ESlateVisibility_MAX"},
	};
	for (const FCase& Case : Cases)
	{
		const UEnum* const Enum = Find<UEnum>(Case.Enum);
		ASSERT_NE(Enum, nullptr);
		EXPECT_EQ(Enum->GetCppForm(), Case.Form);
		const int32 Index = Enum->GetIndexByNameString(Case.Value);
		ASSERT_NE(Index, INDEX_NONE) << TCHAR_TO_UTF8(Case.Value);
		EXPECT_EQ(ToUtf8(Enum->GetNameByIndex(Index).ToString()), Case.FullName);
		EXPECT_EQ(ToUtf8(Enum->GetDisplayNameTextByIndex(Index).ToString()), Case.Shown);
		EXPECT_EQ(ToUtf8(Enum->GetNameByIndex(Enum->NumEnums() - 1).ToString()), Case.Max);
		EXPECT_TRUE(Enum->ContainsExistingMax());
	}
}

TEST_F(Catalogue, ObjectsAndStructsStartWithTheRecordedValues)
{
	const UClass* const Movement = Find<UClass>(TEXT("/Script/Engine.CharacterMovementComponent"));
	ASSERT_NE(Movement, nullptr);
	const FFloatProperty* const Speed = FindFProperty<FFloatProperty>(Movement, TEXT("MaxWalkSpeed"));
	ASSERT_NE(Speed, nullptr);
	EXPECT_EQ(Speed->GetPropertyValue_InContainer(Movement->GetDefaultObject()), 600.0f);

	const UScriptStruct* const Hit = Find<UScriptStruct>(TEXT("/Script/Engine.HitResult"));
	ASSERT_NE(Hit, nullptr);
	const FFloatProperty* const Time = FindFProperty<FFloatProperty>(Hit, TEXT("Time"));
	ASSERT_NE(Time, nullptr);
	EXPECT_EQ(*Time->ContainerPtrToValuePtr<float>(Hit->GetDefaultValue()), 1.0f);
}

/** Whether a value's text can be read, apart from the short forms that only pins know. */
static bool IsValue(const FProperty& Property, const FString& Text, UObject* Owner)
{
	const bool bPinForm = Property.IsA<FStructProperty>() && !Text.StartsWith(TEXT("("));
	TArray<uint8> Memory;
	Memory.SetNumZeroed(Property.GetElementSize() + 16);
	void* const Value = reinterpret_cast<void*>(
		(reinterpret_cast<UPTRINT>(Memory.GetData()) + 15) & ~static_cast<UPTRINT>(15));
	Property.InitializeValue(Value);
	const TCHAR* const End = bPinForm ? TEXT("") : Property.ImportText_Direct(*Text, Value, Owner, PPF_None);
	Property.DestroyValue(Value);
	return End && *End == TEXT('\0');
}

TEST_F(Catalogue, RecordedDefaultsAreValuesOfTheirTypes)
{
	FCatalogue::Get().ForEachPath(UStruct::StaticClass(),
		[](const FString& Path, const FString&)
		{
			UStruct* const Struct = Cast<UStruct>(FCatalogue::Get().FindOrCreate(Path));
			ASSERT_NE(Struct, nullptr);
			if (const UScriptStruct* const ScriptStruct = Cast<UScriptStruct>(Struct))
			{
				for (const TPair<FName, FString>& Default : ScriptStruct->MemberDefaults)
				{
					EXPECT_TRUE(IsValue(*Struct->FindPropertyByName(Default.Key), Default.Value, Struct))
						<< TCHAR_TO_UTF8(*Path) << " " << TCHAR_TO_UTF8(*Default.Key.ToString());
				}
			}
			for (TFieldIterator<UFunction> Function(Struct, EFieldIteratorFlags::ExcludeSuper); Function; ++Function)
			{
				for (TFieldIterator<FProperty> Param(*Function, EFieldIteratorFlags::ExcludeSuper); Param; ++Param)
				{
					const FString* const Default = Function->FindMetaData(
						FName(TEXT("CPP_Default_") + Param->GetName()));
					// The engine itself writes this one with half of the scope.
					const bool bKept = Default && *Default == TEXT("Type::No");
					EXPECT_TRUE(!Default || bKept || IsValue(**Param, *Default, *Function))
						<< TCHAR_TO_UTF8(*Param->GetPathName());
				}
			}
		});
}

TEST_F(Catalogue, ActorsHaveTheirDefaultComponents)
{
	const UClass* const Character = Find<UClass>(TEXT("/Script/Engine.Character"));
	ASSERT_NE(Character, nullptr);
	const UObject* const Defaults = Character->GetDefaultObject();
	const auto Held = [&](const TCHAR* Member)
	{
		const FObjectProperty* const Property = FindFProperty<FObjectProperty>(Character, Member);
		return Property ? Property->GetObjectPropertyValue_InContainer(Defaults) : nullptr;
	};
	UObject* const Capsule = Character->GetDefaultSubobjectByName(TEXT("CollisionCylinder"));
	ASSERT_NE(Capsule, nullptr);
	EXPECT_EQ(ToUtf8(Capsule->GetClass()->GetName()), "CapsuleComponent");
	EXPECT_EQ(Held(TEXT("CapsuleComponent")), Capsule);
	EXPECT_EQ(Held(TEXT("RootComponent")), Capsule);
	EXPECT_EQ(Held(TEXT("Mesh")), Character->GetDefaultSubobjectByName(TEXT("CharacterMesh0")));
	EXPECT_NE(Held(TEXT("CharacterMovement")), nullptr);
}

TEST_F(Catalogue, IsSearchedByPathAndByShortNameIgnoringCase)
{
	UClass* const Actor = Find<UClass>(TEXT("/Script/Engine.Actor"));
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/script/ENGINE.actor")), Actor);
	EXPECT_EQ(FindFirstObject<UClass>(TEXT("Actor")), Actor);
	EXPECT_EQ(FindFirstObject<UEnum>(TEXT("Actor")), nullptr) << "another kind";
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/Engine.Acto")), nullptr);
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/Engin.Actor")), nullptr);
	EXPECT_EQ(FCatalogue::Get().FindOrCreate(TEXT("Actor")), nullptr);
	const UObject* const Nested = FCatalogue::Get().FindOrCreate(
		TEXT("/Script/Engine.InterpToMovementComponent:OnInterpToReverseDelegate__DelegateSignature"));
	ASSERT_NE(Nested, nullptr);
	EXPECT_EQ(Nested->GetOuter(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.InterpToMovementComponent")));
}

TEST_F(Catalogue, ANativeStructKeepsItsMemoryAndGetsTheMetadata)
{
	const UScriptStruct* const Vector = TBaseStructure<FVector>::Get();
	EXPECT_EQ(Vector, Find<UScriptStruct>(TEXT("/Script/CoreUObject.Vector")));
	EXPECT_EQ(Vector->GetStructureSize(), static_cast<int32>(sizeof(FVector)));
	EXPECT_EQ(ToUtf8(Vector->GetMetaData(TEXT("HasNativeMake"))), "/Script/Engine.KismetMathLibrary:MakeVector");
	const FProperty* const X = Vector->FindPropertyByName(TEXT("X"));
	ASSERT_NE(X, nullptr);
	EXPECT_TRUE(X->HasAnyPropertyFlags(CPF_BlueprintVisible));
}
} // namespace CatalogueTests
