#include "Standalone/StandardMacros.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_Tunnel.h"
#include "Standalone/ObjectProviders.h"
#include "StandardMacroBodies.h"
#include "UObject/Package.h"

namespace StandardMacros
{
const TCHAR* const PackageName = TEXT("/Engine/EditorBlueprintResources/StandardMacros");
const TCHAR* const ActorPackageName = TEXT("/Engine/EditorBlueprintResources/ActorMacros");
const TCHAR* const ActorComponentPackageName = TEXT("/Engine/EditorBlueprintResources/ActorComponentMacros");

namespace
{
enum class EPin : uint8
{
	Exec,
	Bool,
	Int,
	Real,
	Object,
	Class,
	Wildcard,
	WildcardArray,
};

struct FPinRow
{
	const TCHAR* Name;
	EPin Type;
	bool bReference = false;
	const TCHAR* Default = TEXT("");
};

struct FMacroRow
{
	const TCHAR* Name;
	const TCHAR* Guid;
	const TCHAR* Category;
	const TCHAR* Tooltip;
	const TCHAR* CompactTitle;
	std::initializer_list<FPinRow> Inputs;
	std::initializer_list<FPinRow> Outputs;
	FMacroBody Body;
};

// The identifiers, names and orders are those of the editor's own library: pasted graphs refer to them.
const std::initializer_list<FMacroRow>& GetStandardRows()
{
	static const std::initializer_list<FMacroRow> Rows = {
		{TEXT("ForLoop"), TEXT("55C904AF4B45FE1761FB55A8DB9FB801"), TEXT("Utilities|Flow Control"),
			TEXT("Runs the body for each index from first to last"), TEXT(""),
			{{TEXT("execute"), EPin::Exec}, {TEXT("FirstIndex"), EPin::Int}, {TEXT("LastIndex"), EPin::Int}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("Index"), EPin::Int}, {TEXT("Completed"), EPin::Exec}},
			&StandardMacroBodies::ForLoop},
		{TEXT("ForLoopWithBreak"), TEXT("1FCFFE2843C702031581E5A273BD4C6B"), TEXT("Utilities|Flow Control"),
			TEXT("Runs the body for each index from first to last, or until break"), TEXT(""),
			{{TEXT("Execute"), EPin::Exec}, {TEXT("FirstIndex"), EPin::Int}, {TEXT("LastIndex"), EPin::Int},
				{TEXT("Break"), EPin::Exec}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("Index"), EPin::Int}, {TEXT("Completed"), EPin::Exec}},
			&StandardMacroBodies::ForLoop},
		{TEXT("ForEachLoop"), TEXT("99DBFD5540A796041F72A5A9DA655026"), TEXT("Utilities|Array"),
			TEXT("Runs the body for each element of the array"), TEXT(""),
			{{TEXT("Exec"), EPin::Exec}, {TEXT("Array"), EPin::WildcardArray}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("Array Element"), EPin::Wildcard}, {TEXT("Array Index"), EPin::Int},
				{TEXT("Completed"), EPin::Exec}},
			&StandardMacroBodies::ForEachLoop},
		{TEXT("ForEachLoopWithBreak"), TEXT("F07560274C5742E391E84B8F394CFB36"), TEXT("Utilities|Array"),
			TEXT("Runs the body for each element of the array, or until break"), TEXT(""),
			{{TEXT("Exec"), EPin::Exec}, {TEXT("Array"), EPin::WildcardArray}, {TEXT("Break"), EPin::Exec}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("Array Element"), EPin::Wildcard}, {TEXT("Array Index"), EPin::Int},
				{TEXT("Completed"), EPin::Exec}},
			&StandardMacroBodies::ForEachLoop},
		{TEXT("ReverseForEachLoop"), TEXT("6DB5FE084A27CDF3569C7980D75D7E14"), TEXT("Utilities|Array"),
			TEXT("Runs the body for each element of the array, the last one first"), TEXT(""),
			{{TEXT("Exec"), EPin::Exec}, {TEXT("Array"), EPin::WildcardArray}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("ArrayIndex"), EPin::Int}, {TEXT("ArrayElement"), EPin::Wildcard},
				{TEXT("Completed"), EPin::Exec}},
			&StandardMacroBodies::ReverseForEachLoop},
		{TEXT("WhileLoop"), TEXT("FA93B260444755CD702C21A123E9A987"), TEXT("Utilities|Flow Control"),
			TEXT("Runs the body as long as the condition holds"), TEXT(""),
			{{TEXT("execute"), EPin::Exec}, {TEXT("Condition"), EPin::Bool}},
			{{TEXT("LoopBody"), EPin::Exec}, {TEXT("Completed"), EPin::Exec}}, &StandardMacroBodies::WhileLoop},
		{TEXT("DoOnce"), TEXT("1281F54248A2ECB5B8B2C5B24AE6FDF4"), TEXT("Utilities|Flow Control"),
			TEXT("Goes on once, until it is reset"), TEXT(""),
			{{TEXT("execute"), EPin::Exec}, {TEXT("Reset"), EPin::Exec}, {TEXT("Start Closed"), EPin::Bool}},
			{{TEXT("Completed"), EPin::Exec}}, &StandardMacroBodies::DoOnce},
		{TEXT("Do N"), TEXT("E8C56B2F4535DC8B7DB8469140DCA455"), TEXT("Utilities|Flow Control"),
			TEXT("Goes on N times, until it is reset"), TEXT(""),
			{{TEXT("Enter"), EPin::Exec}, {TEXT("n"), EPin::Int}, {TEXT("Reset"), EPin::Exec}},
			{{TEXT("Exit"), EPin::Exec}, {TEXT("Counter"), EPin::Int}}, &StandardMacroBodies::DoN},
		{TEXT("Gate"), TEXT("5FD0ADDB41B99E726A411F8E87B5F37C"), TEXT("Utilities|Flow Control"),
			TEXT("Goes on while it is open"), TEXT(""),
			{{TEXT("Enter"), EPin::Exec}, {TEXT("Open"), EPin::Exec}, {TEXT("Close"), EPin::Exec},
				{TEXT("Toggle"), EPin::Exec}, {TEXT("bStartClosed"), EPin::Bool, false, TEXT("true")}},
			{{TEXT("Exit"), EPin::Exec}}, &StandardMacroBodies::Gate},
		{TEXT("FlipFlop"), TEXT("BFFFAAE4434E166F549665AD1AA89B60"), TEXT("Utilities|Flow Control"),
			TEXT("Goes on at A and at B by turns"), TEXT(""), {{TEXT(""), EPin::Exec}},
			{{TEXT("A"), EPin::Exec}, {TEXT("B"), EPin::Exec}, {TEXT("IsA"), EPin::Bool}},
			&StandardMacroBodies::FlipFlop},
		{TEXT("IsValid"), TEXT("64422BCD430703FF5CAEA8B79A32AA65"), TEXT("Utilities"),
			TEXT("Tells whether there is an object, and one that is alive"), TEXT("?"),
			{{TEXT("exec"), EPin::Exec}, {TEXT("InputObject"), EPin::Object}},
			{{TEXT("Is Valid"), EPin::Exec}, {TEXT("Is Not Valid"), EPin::Exec}}, &StandardMacroBodies::IsValid},
		{TEXT("IsValidClass"), TEXT("3D6B8E0F41C94A7790D25E8A1FB3C764"), TEXT("Utilities"),
			TEXT("Tells whether there is a class"), TEXT("?"),
			{{TEXT("exec"), EPin::Exec}, {TEXT("InputClass"), EPin::Class}},
			{{TEXT("Is Valid"), EPin::Exec}, {TEXT("Is Not Valid"), EPin::Exec}}, &StandardMacroBodies::IsValidClass},
		{TEXT("CompareInt"), TEXT("8F27A5C34B0E4D61A9C87312E6D0B45F"), TEXT("Math|Integer"),
			TEXT("Goes on by how the integer stands to another"), TEXT(""),
			{{TEXT("Exec"), EPin::Exec}, {TEXT("Input"), EPin::Int}, {TEXT("CompareWith"), EPin::Int}},
			{{TEXT(">"), EPin::Exec}, {TEXT("=="), EPin::Exec}, {TEXT("<"), EPin::Exec}},
			&StandardMacroBodies::CompareInt},
		{TEXT("CompareFloat"), TEXT("586FC6AF485A689F086B5CA6629837B4"), TEXT("Math|Float"),
			TEXT("Goes on by how the float stands to another"), TEXT(""),
			{{TEXT("Exec"), EPin::Exec}, {TEXT("Input"), EPin::Real}, {TEXT("CompareWith"), EPin::Real}},
			{{TEXT(">"), EPin::Exec}, {TEXT("=="), EPin::Exec}, {TEXT("<"), EPin::Exec}},
			&StandardMacroBodies::CompareFloat},
		{TEXT("IncrementInt"), TEXT("ABF609A74436C3ED7357E59E21A41B9A"), TEXT("Math|Integer"),
			TEXT("Adds 1 to the integer and stores it"), TEXT("++"),
			{{TEXT(" "), EPin::Exec}, {TEXT("Value"), EPin::Int, true}},
			{{TEXT("  "), EPin::Exec}, {TEXT("Result"), EPin::Int}}, &StandardMacroBodies::IncrementInt},
		{TEXT("DecrementInt"), TEXT("313497C74768FD0B41B3D18DA5D1DAA4"), TEXT("Math|Integer"),
			TEXT("Takes 1 from the integer and stores it"), TEXT("--"),
			{{TEXT(" "), EPin::Exec}, {TEXT("Value"), EPin::Int, true}},
			{{TEXT("  "), EPin::Exec}, {TEXT("Result"), EPin::Int}}, &StandardMacroBodies::DecrementInt},
		{TEXT("IncrementFloat"), TEXT("70854B89453748898717A58553B9112D"), TEXT("Math|Float"),
			TEXT("Adds 1 to the float and stores it"), TEXT("++"),
			{{TEXT(" "), EPin::Exec}, {TEXT("Value"), EPin::Real, true}},
			{{TEXT("  "), EPin::Exec}, {TEXT("Result"), EPin::Real}}, &StandardMacroBodies::IncrementFloat},
		{TEXT("DecrementFloat"), TEXT("C72D7612414C8F7153EE1FA375F0EC9C"), TEXT("Math|Float"),
			TEXT("Takes 1 from the float and stores it"), TEXT("--"),
			{{TEXT(" "), EPin::Exec}, {TEXT("Value"), EPin::Real, true}},
			{{TEXT("  "), EPin::Exec}, {TEXT("Result"), EPin::Real}}, &StandardMacroBodies::DecrementFloat}};
	return Rows;
}

const std::initializer_list<FMacroRow>& GetActorRows()
{
	static const std::initializer_list<FMacroRow> Rows = {
		{TEXT("Switch Has Authority"), TEXT("7C0F2B6A4D1E4A53B0E85D6192C3A7F1"), TEXT("Networking"),
			TEXT("Goes on at Authority where this actor is the server's own, and at Remote on the others"), TEXT(""),
			{{TEXT("execute"), EPin::Exec}}, {{TEXT("Authority"), EPin::Exec}, {TEXT("Remote"), EPin::Exec}},
			&StandardMacroBodies::SwitchHasAuthority}};
	return Rows;
}

const std::initializer_list<FMacroRow>& GetActorComponentRows()
{
	static const std::initializer_list<FMacroRow> Rows = {
		{TEXT("Switch Has Authority"), TEXT("A94E61D80B7F4C2D9A3316F8E5D0724B"), TEXT("Networking"),
			TEXT("Goes on at Authority where the owner is the server's own, and at Remote on the others"), TEXT(""),
			{{TEXT("execute"), EPin::Exec}}, {{TEXT("Authority"), EPin::Exec}, {TEXT("Remote"), EPin::Exec}},
			&StandardMacroBodies::SwitchOwnerHasAuthority}};
	return Rows;
}

/** A library: where it is, for Blueprints below which class, and what is in it. */
struct FLibraryRow
{
	const TCHAR* PackageName;
	const TCHAR* AssetName;
	const TCHAR* ParentPath;
	const std::initializer_list<FMacroRow>& (*GetRows)();
};

const FLibraryRow LibraryRows[] = {
	{PackageName, TEXT("StandardMacros"), TEXT("/Script/CoreUObject.Object"), &GetStandardRows},
	{ActorPackageName, TEXT("ActorMacros"), TEXT("/Script/Engine.Actor"), &GetActorRows},
	{ActorComponentPackageName, TEXT("ActorComponentMacros"), TEXT("/Script/Engine.ActorComponent"),
		&GetActorComponentRows}};
constexpr int32 NumLibraries = static_cast<int32>(std::size(LibraryRows));

FEdGraphPinType TypeOf(const FPinRow& Row)
{
	FEdGraphPinType Type;
	switch (Row.Type)
	{
	case EPin::Exec:
		Type.PinCategory = UEdGraphSchema_K2::PC_Exec;
		break;
	case EPin::Bool:
		Type.PinCategory = UEdGraphSchema_K2::PC_Boolean;
		break;
	case EPin::Int:
		Type.PinCategory = UEdGraphSchema_K2::PC_Int;
		break;
	case EPin::Real:
		Type.PinCategory = UEdGraphSchema_K2::PC_Real;
		Type.PinSubCategory = UEdGraphSchema_K2::PC_Double;
		break;
	case EPin::Object:
		Type.PinCategory = UEdGraphSchema_K2::PC_Object;
		Type.PinSubCategoryObject = UObject::StaticClass();
		break;
	case EPin::Class:
		Type.PinCategory = UEdGraphSchema_K2::PC_Class;
		Type.PinSubCategoryObject = UObject::StaticClass();
		break;
	case EPin::WildcardArray:
		Type.ContainerType = EPinContainerType::Array;
		[[fallthrough]];
	case EPin::Wildcard:
		Type.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
		break;
	}
	Type.bIsReference = Row.bReference;
	return Type;
}

UK2Node_Tunnel* MakeTunnel(UEdGraph& Graph, const std::initializer_list<FPinRow>& Pins, bool bEntry)
{
	FGraphNodeCreator<UK2Node_Tunnel> Creator(Graph);
	UK2Node_Tunnel* const Tunnel = Creator.CreateNode();
	Tunnel->bCanHaveOutputs = bEntry;
	Tunnel->bCanHaveInputs = !bEntry;
	Tunnel->bIsEditable = true;
	Tunnel->NodePosX = bEntry ? -400 : 800;
	Creator.Finalize();
	for (const FPinRow& Row : Pins)
	{
		const FName Name = *Row.Name ? FName(Row.Name) : FName();
		UEdGraphPin* const Pin = Tunnel->CreateUserDefinedPin(
			Name, TypeOf(Row), bEntry ? EGPD_Output : EGPD_Input, false);
		Pin->AutogeneratedDefaultValue = Row.Default;
		Pin->DefaultValue = Row.Default;
		Tunnel->UserDefinedPins.Last()->PinDefaultValue = Row.Default;
	}
	return Tunnel;
}

void MakeMacro(UBlueprint& Library, const FMacroRow& Row)
{
	UEdGraph* const Graph = NewObject<UEdGraph>(&Library, FName(Row.Name), RF_Transient);
	Graph->Schema = TSubclassOf<UEdGraphSchema>(UEdGraphSchema_K2::StaticClass());
	FGuid::Parse(Row.Guid, Graph->GraphGuid);
	Graph->bEditable = false;
	Graph->bAllowDeletion = false;
	Graph->bAllowRenaming = false;
	Library.MacroGraphs.Add(Graph);
	UK2Node_Tunnel* const Entry = MakeTunnel(*Graph, Row.Inputs, true);
	UK2Node_Tunnel* const Exit = MakeTunnel(*Graph, Row.Outputs, false);
	Entry->MetaData.Category = FText::FromString(Row.Category);
	Entry->MetaData.ToolTip = FText::FromString(Row.Tooltip);
	Entry->MetaData.CompactNodeTitle = FText::FromString(Row.CompactTitle);
	Row.Body(*Graph, *Entry, *Exit);
}

UBlueprint* MakeLibrary(const FLibraryRow& LibraryRow)
{
	UPackage* const Package = CreatePackage(LibraryRow.PackageName);
	Package->SetFlags(RF_Transient);
	UBlueprint* const Library = NewObject<UBlueprint>(
		Package, FName(LibraryRow.AssetName), static_cast<EObjectFlags>(RF_Public | RF_Transient));
	Library->BlueprintType = BPTYPE_MacroLibrary;
	Library->ParentClass = TSubclassOf<UObject>(FindObject<UClass>(nullptr, LibraryRow.ParentPath));
	Library->Status = BS_UpToDate;
	for (const FMacroRow& Row : LibraryRow.GetRows())
	{
		MakeMacro(*Library, Row);
	}
	Package->SetDirtyFlag(false);
	return Library;
}

UBlueprint* GetLibraryAt(int32 Index)
{
	static TWeakObjectPtr<UBlueprint> Libraries[NumLibraries];
	if (!Libraries[Index].Get())
	{
		Libraries[Index] = MakeLibrary(LibraryRows[Index]);
	}
	return Libraries[Index].Get();
}

ObjectProviders::FPackageLoader Next;

UPackage* LoadLibraryOrNext(FStringView LongPackageName, uint32 LoadFlags)
{
	if (const UBlueprint* const Library = GetLibrary(FString(LongPackageName)))
	{
		return Library->GetPackage();
	}
	return Next.Load ? Next.Load(LongPackageName, LoadFlags) : nullptr;
}
} // namespace

UBlueprint* GetLibrary(const FString& LongPackageName)
{
	for (int32 Index = 0; Index < NumLibraries; ++Index)
	{
		if (LongPackageName == LibraryRows[Index].PackageName)
		{
			return GetLibraryAt(Index);
		}
	}
	return nullptr;
}

void MakeLibraries()
{
	for (int32 Index = 0; Index < NumLibraries; ++Index)
	{
		GetLibraryAt(Index);
	}
}

UEdGraph* FindMacro(FName Name, const FString& LongPackageName)
{
	const UBlueprint* const Library = GetLibrary(LongPackageName);
	const TObjectPtr<UEdGraph>* const Found = Library
		? Library->MacroGraphs.FindByPredicate([Name](const UEdGraph* Graph) { return Graph->GetFName() == Name; })
		: nullptr;
	return Found ? Found->Get() : nullptr;
}

void Install()
{
	const ObjectProviders::FPackageLoader Current = ObjectProviders::GetPackageLoader();
	if (Current.Load == &LoadLibraryOrNext)
	{
		return;
	}
	Next = Current;
	ObjectProviders::FPackageLoader Mine;
	Mine.Load = &LoadLibraryOrNext;
	ObjectProviders::SetPackageLoader(Mine);
}
} // namespace StandardMacros
