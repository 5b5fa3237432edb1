// What a project's marked C++ says becomes known as data, as far as text alone tells.

#include "HAL/FileManager.h"
#include "ProjectCode/CatalogueLines.h"
#include "ProjectCode/CodeCatalogue.h"
#include "ProjectCode/CppTokens.h"
#include "Session/EditorModules.h"
#include "Standalone/Catalogue.h"
#include "TemporaryFolder.h"
#include "ToolResults.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <random>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace ProjectCodeTests
{
class ProjectCode : public testing::Test
{
protected:
	static void SetUpTestSuite() { EditorModules::StartEditor(); }
	void TearDown() override { FCatalogue::Get().UnloadProjectCatalogue(); }

	/** The lines of a module with this one header. */
	static std::vector<std::string> LinesOf(const std::string& Header, const std::string& Source = std::string())
	{
		const std::vector<FCodeFile> Files = {{"/Script/Doors", "Door.h", ReflectedCode::ReadHeader(Header)}};
		const std::vector<ReflectedCode::FComponent> Components = ReflectedCode::ReadConstructors(Source);
		return FCatalogueLines(Files, Components).Write()["/Script/Doors"];
	}

	/** The lines behind the type's own. */
	static std::vector<std::string> MembersOf(const std::string& Members)
	{
		std::vector<std::string> Lines = LinesOf(
			"UCLASS() class ADoor : public AActor { GENERATED_BODY()\n" + Members + "\n};");
		EXPECT_FALSE(Lines.empty());
		Lines.erase(Lines.begin());
		return Lines;
	}

	FTemporaryFolder Folder;
};

TEST_F(ProjectCode, PropertiesBearTheirMarks)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = \"Door|Swing\") float Angle = 90.f;",
			R"({"property":"Angle","type":"real:float","flags":["edit","bp_read","bp_write"],"default":"90.000000","category":"Door|Swing"})"},
		{"UPROPERTY(visibleanywhere, BlueprintReadOnly, meta = (DisplayName = \"A, (b)\", AllowPrivateAccess))\n// ;\nTObjectPtr<class UBoxComponent> Box { };",
			R"j({"property":"Box","type":"object /Script/Engine.BoxComponent","flags":["visible","bp_read"],"display":"A, (b)"})j"},
		{"UPROPERTY() uint8 bLocked : 1;", R"({"property":"bLocked","type":"bool"})"},
		{"UPROPERTY(ReplicatedUsing = OnRep_X, meta=(ExposeOnSpawn=\"true\")) TMap<FName, TSubclassOf<AActor>> Kinds;",
			R"({"property":"Kinds","type":"map name -> class /Script/Engine.Actor","flags":["replicated","rep_notify","expose_on_spawn"]})"},
		{"UPROPERTY() const TArray<TSoftObjectPtr<UTexture2D>> Faces;",
			R"({"property":"Faces","type":"array softobject /Script/Engine.Texture2D"})"},
		{"UPROPERTY() UClass* Kind = nullptr;", R"({"property":"Kind","type":"class /Script/CoreUObject.Object"})"},
		{"UPROPERTY() FVector At = FVector(1.f, 2, -3.5);",
			R"({"property":"At","type":"struct /Script/CoreUObject.Vector","default":"1.000000,2.000000,-3.500000"})"},
		{"UPROPERTY() FName Tag = TEXT(\"a\\\"b\");", nullptr}, {"UPROPERTY() int32 Fixed[4];", ""},
		{"UPROPERTY() FNobodyKnows What;", ""}, {"int32 Unmarked;", ""}};
	for (const auto& [Code, Line] : Cases)
	{
		const std::vector<std::string> Lines = MembersOf(Code);
		if (!Line)
		{
			EXPECT_EQ(Lines.size(), 1u) << Code;
		}
		else if (*Line)
		{
			EXPECT_THAT(Lines, ElementsAre(Line)) << Code;
		}
		else
		{
			EXPECT_THAT(Lines, IsEmpty()) << Code;
		}
	}
}

TEST_F(ProjectCode, FunctionsAreThoseThatBlueprintsSee)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"UFUNCTION(BlueprintCallable, Category=Door, meta=(DisplayName=\"Swing Open\", AdvancedDisplay=\"bFast\"))\nvirtual void Open(float Speed = 2.5f, bool bFast = false);",
			R"({"function":"Open","flags":["callable"],"params":[{"name":"Speed","type":"real:float","default":"2.500000"},{"name":"bFast","type":"bool","default":"false"}],"display":"Swing Open","category":"Door","meta":{"AdvancedDisplay":"bFast"}})"},
		{"UFUNCTION(BlueprintCallable) FORCEINLINE float GetAngle() const { if (x) { return 1; } return Angle; }",
			R"({"function":"GetAngle","flags":["callable","pure","const"],"returns":{"type":"real:float"}})"},
		{"UFUNCTION(BlueprintCallable, BlueprintPure=false) int32 Roll() const;",
			R"({"function":"Roll","flags":["callable","const"],"returns":{"type":"int"}})"},
		{"UFUNCTION(BlueprintImplementableEvent) void OnHit(const FHitResult& Hit, TArray<AActor*>& OutWho, UPARAM(ref) FName& Tag);",
			R"({"function":"OnHit","flags":["event"],"params":[{"name":"Hit","type":"struct /Script/Engine.HitResult","flags":["ref","const"]},{"name":"OutWho","type":"array object /Script/Engine.Actor","flags":["out"]},{"name":"Tag","type":"name","flags":["ref"]}]})"},
		{"UFUNCTION(BlueprintCallable, meta=(WorldContext=\"W\", Latent, LatentInfo=\"L\")) static DOORS_API void Later(const UObject* W, FLatentActionInfo L);",
			R"({"function":"Later","flags":["static","callable","latent"],"params":[{"name":"W","type":"object /Script/CoreUObject.Object","flags":["const"]},{"name":"L","type":"struct /Script/Engine.LatentActionInfo"}],"world_context":"W","meta":{"LatentInfo":"L"}})"},
		{"UFUNCTION() void OnRep_State();", ""}, {"UFUNCTION(Server, Reliable) void Serve();", ""},
		{"UFUNCTION(BlueprintCallable) void Bad(FNobodyKnows* What);", ""}};
	for (const auto& [Code, Line] : Cases)
	{
		const std::vector<std::string> Lines = MembersOf(Code);
		if (*Line)
		{
			EXPECT_THAT(Lines, ElementsAre(Line)) << Code;
		}
		else
		{
			EXPECT_THAT(Lines, IsEmpty()) << Code;
		}
	}
}

TEST_F(ProjectCode, TypesOfEveryKindAndTheirParents)
{
	EXPECT_THAT(
		LinesOf(
			"UENUM(BlueprintType) enum class EState : uint8 { Shut UMETA(DisplayName = \"Shut, or so\"), Half = 1 << 2, Open UMETA(Hidden) };"
			"UENUM() namespace EOld { enum Type { A, B, }; }"
			"USTRUCT(BlueprintType) struct DOORS_API FInfo : public FTableRowBase { GENERATED_BODY() UPROPERTY() EState State = EState::Half; UPROPERTY() TEnumAsByte<EOld::Type> Old; };"
			"DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnOpened, const FInfo&, Info);"
			"UINTERFACE() class UOpenable : public UInterface { GENERATED_BODY() };"
			"class IOpenable { GENERATED_BODY() public: UFUNCTION(BlueprintNativeEvent) bool Try(); };"
			"namespace Inner { class FHidden { UPROPERTY() int32 X; }; }"
			"UCLASS(Abstract) class DOORS_API UThing final : public UObject, public IOpenable { UPROPERTY(BlueprintAssignable) FOnOpened OnOpened; };"
			"UCLASS(meta=(BlueprintSpawnableComponent)) class USwing : public UPluginComponent {};"),
		ElementsAre(
			R"({"enum":"/Script/Doors.EState","form":"class","header":"Door.h","flags":["blueprint_type"],"values":[{"name":"Shut","display":"Shut, or so"},{"name":"Half","value":4},{"name":"Open","hidden":true}]})",
			R"({"enum":"/Script/Doors.EOld","form":"namespaced","header":"Door.h","values":[{"name":"A"},{"name":"B"}]})",
			R"({"struct":"/Script/Doors.Info","header":"Door.h","parent":"/Script/Engine.TableRowBase","flags":["blueprint_type"]})",
			R"({"property":"State","type":"byte /Script/Doors.EState","default":"Half"})",
			R"({"property":"Old","type":"byte /Script/Doors.EOld"})",
			R"({"delegate":"/Script/Doors.OnOpened__DelegateSignature","flags":["multicast"],"params":[{"name":"Info","type":"struct /Script/Doors.Info","flags":["ref","const"]}]})",
			R"({"class":"/Script/Doors.Openable","header":"Door.h","parent":"/Script/CoreUObject.Interface","flags":["interface","blueprintable","blueprint_type"]})",
			R"({"function":"Try","flags":["native_event"],"returns":{"type":"bool"}})",
			R"({"class":"/Script/Doors.Thing","header":"Door.h","parent":"/Script/CoreUObject.Object","flags":["abstract"],"interfaces":["/Script/Doors.Openable"]})",
			R"({"dispatcher":"OnOpened","signature":"/Script/Doors.OnOpened__DelegateSignature"})",
			R"({"class":"/Script/Doors.Swing","header":"Door.h","parent":"/Script/Engine.ActorComponent","flags":["component","spawnable","blueprintable","blueprint_type"]})"));
}

TEST_F(ProjectCode, ComponentsAreThoseThatTheConstructorMakesTheRootFirst)
{
	const std::vector<std::string> Lines = LinesOf(
		"UCLASS() class ADoor : public AActor { UPROPERTY() UStaticMeshComponent* Mesh; UPROPERTY() USceneComponent* Base; };",
		"ADoor::ADoor() : Super() { Mesh = CreateDefaultSubobject<UStaticMeshComponent>(TEXT(\"MeshComp\"));"
		" Mesh->SetupAttachment(RootComponent); if (1) { Hidden = CreateDefaultSubobject<UBoxComponent>(\"Box\"); }"
		" Base = CreateDefaultSubobject<USceneComponent>(\"Base\"); RootComponent = Base; }"
		"void ADoor::Other() { Late = CreateDefaultSubobject<UBoxComponent>(\"No\"); }");
	ASSERT_EQ(Lines.size(), 6u);
	EXPECT_THAT((std::vector<std::string>(Lines.begin() + 3, Lines.end())),
		ElementsAre(R"({"component":"Base","class":"/Script/Engine.SceneComponent","property":"Base"})",
			R"({"component":"MeshComp","class":"/Script/Engine.StaticMeshComponent","property":"Mesh","attach":"Base"})",
			R"({"component":"Box","class":"/Script/Engine.BoxComponent"})"));
}

TEST_F(ProjectCode, ModulesAreWrittenAndWhatTheCatalogueCannotHoldIsTold)
{
	Folder.Write("Source/Doors/Doors.Build.cs", "");
	Folder.Write("Source/Doors/Public/Sub/Door.h",
		"DECLARE_DYNAMIC_DELEGATE_RetVal(bool, FMay); UCLASS() class ADoor : public AActor { UPROPERTY() FMay May; UPROPERTY() int32 A; UPROPERTY() bool A; };");
	Folder.Write("Plugins/Pack/Source/Pack/Pack.Build.cs", "");
	Folder.Write("Plugins/Pack/Source/Pack/Private/Pack.h",
		"UCLASS() class APack : public AMystery { UPROPERTY() ADoor* Door; };\nUCLASS() class UByHand : public UObject {};");
	Folder.Write(
		"Config/Catalogue/Mine.jsonl", "{\"class\":\"/Script/Pack.ByHand\",\"parent\":\"/Script/Engine.Actor\"}\n");
	for (int Run = 0; Run < 2; ++Run)
	{
		Morvane::FToolResult Result = MakeResult();
		CodeCatalogue::Make(Folder.Get(), Result);
		EXPECT_TRUE(Result.WasSuccessful());
		EXPECT_THAT(Warnings(Result),
			ElementsAre(HasSubstr("'A' is there twice"),
				HasSubstr(
					"'APack' derives from 'AMystery', which is not known; it is taken as one of /Script/Engine.Actor"),
				HasSubstr("AMystery (1)")));
		EXPECT_EQ(Folder.Read("Config/Catalogue/Doors.headers.jsonl"),
			"{\"delegate\":\"/Script/Doors.May__DelegateSignature\",\"returns\":{\"type\":\"bool\"}}\n"
			"{\"class\":\"/Script/Doors.Door\",\"header\":\"Sub/Door.h\",\"parent\":\"/Script/Engine.Actor\",\"flags\":[\"actor\",\"blueprintable\",\"blueprint_type\"]}\n"
			"{\"property\":\"May\",\"type\":\"delegate /Script/Doors.May__DelegateSignature\"}\n"
			"{\"property\":\"A\",\"type\":\"int\"}\n");
		const UClass* const Pack = FindObject<UClass>(nullptr, TEXT("/Script/Pack.Pack"));
		ASSERT_NE(Pack, nullptr);
		EXPECT_NE(FindFProperty<FObjectProperty>(Pack, TEXT("Door")), nullptr)
			<< "a fault elsewhere takes nothing along";
		EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/Pack.ByHand"))->GetSuperClass()->GetName(), TEXT("Actor"))
			<< "what is stated by hand stays";
	}
	FTemporaryFolder Empty;
	Morvane::FToolResult Result = MakeResult();
	CodeCatalogue::Make(Empty.Get(), Result);
	EXPECT_THAT(Errors(Result), ElementsAre(HasSubstr("No module with C++ headers was found")));
}

TEST_F(ProjectCode, DelegatesMayReturnSomething)
{
	const std::vector<std::string> Lines = LinesOf(
		"DECLARE_DYNAMIC_DELEGATE_RetVal_OneParam(bool, FCanOpen, AActor*, Who);\n"
		"UCLASS() class ADoor : public AActor { GENERATED_BODY()\nUPROPERTY(BlueprintReadWrite) FCanOpen Asker;\n};");
	ASSERT_EQ(Lines.size(), 3u);
	Folder.Write("Config/Catalogue/Doors.jsonl", Lines[0] + "\n" + Lines[1] + "\n" + Lines[2] + "\n");
	TArray<FString> Faults;
	FCatalogue::Get().LoadProjectCatalogue(Folder.Get(), Faults);
	EXPECT_EQ(ToStd(FString::Join(Faults, TEXT("|"))), "");
	const UClass* const Door = FindObject<UClass>(nullptr, TEXT("/Script/Doors.Door"));
	ASSERT_NE(Door, nullptr);
	const FDelegateProperty* const Asker = CastField<FDelegateProperty>(Door->FindPropertyByName(TEXT("Asker")));
	ASSERT_NE(Asker, nullptr);
	EXPECT_NE(CastField<FBoolProperty>(Asker->SignatureFunction->GetReturnProperty()), nullptr);
}

TEST_F(ProjectCode, EntriesOfEnumsAreWorkedOut)
{
	const std::pair<const char*, const char*> Cases[] = {{"1 << 3", R"("value":8)"}, {"A | B", R"("value":6)"},
		{"EKind::B + 0x10u", R"("value":20)"}, {"~0", R"("value":-1)"}, {"(A|B)&~B", R"("value":2)"},
		{"1'000 - -1", R"("value":1001)"}, {"0b101", R"("value":5)"}, {"Nobody | 1", nullptr}, {"sizeof(int)", nullptr},
		{"((((", nullptr}};
	for (const auto& [Code, Value] : Cases)
	{
		const std::string Header = std::string("UENUM() enum class EKind : uint8 { A = 2, B = 4, C = ") + Code + " };";
		const std::vector<std::string> Lines = LinesOf(Header);
		ASSERT_EQ(Lines.size(), 1u) << Code;
		EXPECT_THAT(Lines[0], HasSubstr(std::string(R"({"name":"C")") + (Value ? std::string(",") + Value : "") + "}"))
			<< Code;
	}
}

TEST_F(ProjectCode, AnyBytesAreRead)
{
	const std::string Code =
		"#define X \\\n 1\nUCLASS(meta=(A=\"x\",B)) class A_API ADoor : public AActor, IX { R\"x(a)x\" UPROPERTY(E) TMap<A,B<C>> D = {1}; UFUNCTION(F) static void G(int a = (1), b) const; };"
		"UENUM() enum E { A = 1 << 2 UMETA(H), }; DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(F, int, X); ADoor::ADoor() : B(1) { C = CreateDefaultSubobject<U>(TEXT(\"n\")); C->SetupAttachment(D); }";
	std::mt19937 Random(7);
	for (std::size_t Length = 0; Length <= Code.size(); ++Length)
	{
		std::string Text = Code.substr(0, Length);
		for (int Change = 0; Change < 3 && !Text.empty(); ++Change)
		{
			ReflectedCode::ReadHeader(Text);
			ReflectedCode::ReadConstructors(Text);
			EXPECT_EQ(CutIntoCppTokens(Text).back().Kind, FCppToken::EKind::End);
			Text[Random() % Text.size()] = "{}()<>,;:=\"\\/*#x"[Random() % 16];
		}
	}
}
} // namespace ProjectCodeTests
