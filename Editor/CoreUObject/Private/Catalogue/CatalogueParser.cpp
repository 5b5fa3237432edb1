#include "Catalogue/CatalogueFields.h"
#include "Catalogue/CatalogueSource.h"

#include <map>
#include <set>

namespace Catalogue
{
namespace CatalogueParser
{
constexpr FWord ClassFlags[] = {{"abstract", Owner_Abstract}, {"interface", Owner_Interface}, {"actor", Owner_Actor},
	{"component", Owner_Component}, {"spawnable", Owner_Spawnable}, {"widget", Owner_Widget},
	{"function_library", Owner_FunctionLibrary}, {"async_action", Owner_AsyncAction},
	{"blueprintable", Owner_Blueprintable}, {"blueprint_type", Owner_BlueprintType}, {"const", Owner_Const},
	{"deprecated", Owner_Deprecated}, {"stub", Owner_Stub}};
constexpr FWord StructFlags[] = {{"blueprint_type", Owner_BlueprintType}, {"atomic", Owner_Atomic}};
constexpr FWord EnumFlags[] = {{"blueprint_type", Owner_BlueprintType}, {"bitflags", Owner_Bitflags}};
constexpr FWord DelegateFlags[] = {{"multicast", Owner_Multicast}};
constexpr FWord PropertyFlags[] = {{"edit", Property_Edit}, {"edit_const", Property_EditConst},
	{"visible", Property_Visible}, {"bp_read", Property_BlueprintRead}, {"bp_write", Property_BlueprintWrite},
	{"expose_on_spawn", Property_ExposeOnSpawn}, {"instanced", Property_Instanced}, {"transient", Property_Transient},
	{"config", Property_Config}, {"replicated", Property_Replicated}, {"rep_notify", Property_RepNotify},
	{"binding", Property_Binding}, {"advanced", Property_Advanced}, {"deprecated", Property_Deprecated},
	{"const", Property_Const}, {"raw", Property_RawClass}};
constexpr FWord DispatcherFlags[] = {{"callable", Property_Callable}, {"authority", Property_Authority}};
constexpr FWord FunctionFlags[] = {{"static", Function_Static}, {"event", Function_Event},
	{"native_event", Function_NativeEvent}, {"callable", Function_Callable}, {"pure", Function_Pure},
	{"latent", Function_Latent}, {"const", Function_Const}, {"protected", Function_Protected},
	{"internal", Function_Internal}, {"deprecated", Function_Deprecated}};
constexpr FWord ParamFlags[] = {
	{"out", Property_Out}, {"const", Property_Const}, {"ref", Property_Ref}, {"raw", Property_RawClass}};
constexpr FWord ReturnFlags[] = {{"const", Property_Const}, {"ref", Property_Ref}, {"raw", Property_RawClass}};
constexpr FWord EnumForms[] = {{"regular", static_cast<std::uint32_t>(EEnumForm::Regular)},
	{"namespaced", static_cast<std::uint32_t>(EEnumForm::Namespaced)},
	{"class", static_cast<std::uint32_t>(EEnumForm::Class)}};

static std::string Lowered(std::string_view Text)
{
	std::string Lower(Text);
	for (char& Char : Lower)
	{
		Char = static_cast<char>(FoldAscii(static_cast<std::uint32_t>(static_cast<unsigned char>(Char))));
	}
	return Lower;
}

/** Reads one file, line by line. */
class FFileParser
{
public:
	FFileParser(std::string_view InName, std::vector<FFault>& OutFaults)
		: Report{InName, 0, &OutFaults}
	{
		File.Name = InName;
	}

	FSourceFile Parse(std::string_view Text)
	{
		while (!Text.empty())
		{
			const std::size_t End = std::min(Text.find('\n'), Text.size());
			std::string_view Line = Text.substr(0, End);
			Text.remove_prefix(std::min(End + 1, Text.size()));
			++Report.Line;
			if (!Line.empty() && Line.back() == '\r')
			{
				Line.remove_suffix(1);
			}
			if (Line.find_first_not_of(" \t") != std::string_view::npos)
			{
				ParseLine(Line);
			}
		}
		return std::move(File);
	}

private:
	void ParseLine(std::string_view Line);
	void ParseObject(std::string_view Kind, FFields& Fields);
	void ParseOwner(EOwnerKind Kind, std::string_view Word, FFields& Fields);
	void ParseClass(FFields& Fields, FSourceOwner& Owner);
	void ParseStruct(FFields& Fields, FSourceOwner& Owner);
	void ParseEnum(FFields& Fields, FSourceOwner& Owner);
	void ParseMember(std::string_view Kind, FFields& Fields);
	void ParseProperty(FFields& Fields);
	void ParseDispatcher(FFields& Fields);
	void ParseComponent(FFields& Fields);
	void ParseFunction(FFields& Fields);
	void ParseReturns(FFields& Fields, std::vector<FSourceProperty>& Params);
	std::vector<FSourceProperty> ParseParams(FFields& Fields, std::string_view Key, std::span<const FWord> Flags);
	void ParseTypeField(FFields& Fields, FSourceType& Out);
	std::string NewName(FFields& Fields, std::string_view Key, std::string_view Space);

	FLineReport Report;
	FSourceFile File;
	simdjson::dom::parser Parser;
	/** Lower-case names of the present owner's members, a name space each for properties, functions and components. */
	std::set<std::pair<std::string_view, std::string>> MemberNames;
	/** Lower-case path of each owner, and its line. */
	std::map<std::string, int> OwnerLines;
};

void FFileParser::ParseLine(std::string_view Line)
{
	simdjson::dom::element Root;
	const simdjson::error_code Error = Parser.parse(Line.data(), Line.size(), true).get(Root);
	if (Error != simdjson::SUCCESS)
	{
		Report.Fault(std::string("not valid JSON: ") + simdjson::error_message(Error));
		return;
	}
	simdjson::dom::object Object;
	if (Root.get(Object) != simdjson::SUCCESS || Object.begin() == Object.end())
	{
		Report.Fault("a line must be one JSON object with a kind as its first key");
		return;
	}
	FFields Fields(Object, Report);
	ParseObject((*Object.begin()).key, Fields);
}

void FFileParser::ParseObject(std::string_view Kind, FFields& Fields)
{
	constexpr FWord Owners[] = {{"class", static_cast<std::uint32_t>(EOwnerKind::Class)},
		{"struct", static_cast<std::uint32_t>(EOwnerKind::Struct)},
		{"enum", static_cast<std::uint32_t>(EOwnerKind::Enum)},
		{"delegate", static_cast<std::uint32_t>(EOwnerKind::Delegate)}};
	const std::uint32_t OwnerKind = FindWord(Kind, Owners);
	if (OwnerKind != NoIndex)
	{
		ParseOwner(static_cast<EOwnerKind>(OwnerKind), Kind, Fields);
	}
	else
	{
		ParseMember(Kind, Fields);
	}
}

void FFileParser::ParseOwner(EOwnerKind Kind, std::string_view Word, FFields& Fields)
{
	FSourceOwner Owner;
	Owner.Kind = Kind;
	Owner.Line = Report.Line;
	Owner.Path = Fields.RequiredString(Word);
	if (!Owner.Path.empty() && !IsPath(Owner.Path))
	{
		Report.Fault("'" + Owner.Path + "' is no path like /Script/Module.Name");
	}
	const auto [Earlier, bNew] = OwnerLines.emplace(Lowered(Owner.Path), Report.Line);
	if (!bNew)
	{
		Report.Fault("'" + Owner.Path + "' is there twice, first in line " + std::to_string(Earlier->second));
	}
	switch (Kind)
	{
	case EOwnerKind::Class:
		ParseClass(Fields, Owner);
		break;
	case EOwnerKind::Struct:
		ParseStruct(Fields, Owner);
		break;
	case EOwnerKind::Enum:
		ParseEnum(Fields, Owner);
		break;
	case EOwnerKind::Delegate:
		Owner.Flags = Fields.Flags("flags", DelegateFlags);
		Owner.Properties = ParseParams(Fields, "params", ParamFlags);
		ParseReturns(Fields, Owner.Properties);
		break;
	}
	Fields.RejectOthers();
	MemberNames.clear();
	File.Owners.push_back(std::move(Owner));
}

void FFileParser::ParseClass(FFields& Fields, FSourceOwner& Owner)
{
	Owner.Flags = Fields.Flags("flags", ClassFlags);
	Owner.Parent = Fields.String("parent");
	Owner.CppName = Fields.String("cpp");
	Owner.Header = Fields.String("header");
	Owner.Display = Fields.String("display");
	Owner.Category = Fields.String("category");
	Owner.Interfaces = Fields.Strings("interfaces");
	Owner.Defaults = Fields.Meta("defaults");
	Owner.Meta = Fields.Meta("meta");
	if (Owner.Parent.empty() && Owner.Path != "/Script/CoreUObject.Object")
	{
		Report.Fault("a class needs 'parent'");
	}
}

void FFileParser::ParseStruct(FFields& Fields, FSourceOwner& Owner)
{
	Owner.Flags = Fields.Flags("flags", StructFlags);
	Owner.Parent = Fields.String("parent");
	Owner.CppName = Fields.String("cpp");
	Owner.Header = Fields.String("header");
	Owner.NativeMake = Fields.String("native_make");
	Owner.NativeBreak = Fields.String("native_break");
	Owner.Meta = Fields.Meta("meta");
}

void FFileParser::ParseEnum(FFields& Fields, FSourceOwner& Owner)
{
	Owner.Flags = Fields.Flags("flags", EnumFlags);
	Owner.Header = Fields.String("header");
	const std::string Form = Fields.RequiredString("form");
	const std::uint32_t FormValue = FindWord(Form, EnumForms);
	if (FormValue != NoIndex)
	{
		Owner.EnumForm = static_cast<EEnumForm>(FormValue);
	}
	else if (!Form.empty())
	{
		Report.Fault("unknown form '" + Form + "'");
	}
	std::int64_t Next = 0;
	std::set<std::string> Names;
	for (const simdjson::dom::object& Entry : Fields.Objects("values"))
	{
		FFields ValueFields(Entry, Report);
		FSourceValue Value;
		Value.Name = ValueFields.RequiredString("name");
		Value.Display = ValueFields.String("display");
		Value.Value = ValueFields.Integer("value", Next);
		Value.bHidden = ValueFields.Bool("hidden");
		ValueFields.RejectOthers();
		if (!Names.insert(Lowered(Value.Name)).second)
		{
			Report.Fault("value '" + Value.Name + "' is there twice");
		}
		Next = Value.Value + 1;
		Owner.Values.push_back(std::move(Value));
	}
}

void FFileParser::ParseMember(std::string_view Kind, FFields& Fields)
{
	const bool bProperty = Kind == "property";
	if (!bProperty && Kind != "dispatcher" && Kind != "component" && Kind != "function")
	{
		Report.Fault("unknown kind of line '" + std::string(Kind) + "'");
		return;
	}
	const bool bFits = !File.Owners.empty()
		&& (File.Owners.back().Kind == EOwnerKind::Class
			|| (bProperty && File.Owners.back().Kind == EOwnerKind::Struct));
	if (!bFits)
	{
		Report.Fault("a " + std::string(Kind) + " must stand below the " + (bProperty ? "class or struct" : "class")
			+ " it belongs to");
		return;
	}
	if (bProperty)
	{
		ParseProperty(Fields);
	}
	else if (Kind == "dispatcher")
	{
		ParseDispatcher(Fields);
	}
	else if (Kind == "component")
	{
		ParseComponent(Fields);
	}
	else
	{
		ParseFunction(Fields);
	}
	Fields.RejectOthers();
}

std::string FFileParser::NewName(FFields& Fields, std::string_view Key, std::string_view Space)
{
	std::string Name = Fields.RequiredString(Key);
	if (!Name.empty() && !MemberNames.emplace(Space, Lowered(Name)).second)
	{
		Report.Fault("'" + Name + "' is there twice in '" + File.Owners.back().Path + "'");
	}
	return Name;
}

void FFileParser::ParseTypeField(FFields& Fields, FSourceType& Out)
{
	const std::string Text = Fields.RequiredString("type");
	if (!Text.empty())
	{
		ParseType(Text, Report, Out);
	}
}

void FFileParser::ParseProperty(FFields& Fields)
{
	FSourceProperty Property;
	Property.Line = Report.Line;
	Property.Name = NewName(Fields, "property", "property");
	ParseTypeField(Fields, Property.Type);
	Property.Flags = Fields.Flags("flags", PropertyFlags);
	Property.Default = Fields.String("default");
	Property.Display = Fields.String("display");
	Property.Category = Fields.String("category");
	Property.Meta = Fields.Meta("meta");
	File.Owners.back().Properties.push_back(std::move(Property));
}

void FFileParser::ParseDispatcher(FFields& Fields)
{
	FSourceProperty Dispatcher;
	Dispatcher.Line = Report.Line;
	Dispatcher.Name = NewName(Fields, "dispatcher", "property");
	Dispatcher.Type.Category = ECategory::MulticastDelegate;
	Dispatcher.Type.Path = Fields.RequiredString("signature");
	Dispatcher.Flags = Fields.Flags("flags", DispatcherFlags);
	Dispatcher.Category = Fields.String("category");
	File.Owners.back().Properties.push_back(std::move(Dispatcher));
}

void FFileParser::ParseComponent(FFields& Fields)
{
	FSourceComponent Component;
	Component.Line = Report.Line;
	Component.Name = NewName(Fields, "component", "component");
	Component.Class = Fields.RequiredString("class");
	Component.Property = Fields.String("property");
	Component.Attach = Fields.String("attach");
	File.Owners.back().Components.push_back(std::move(Component));
}

void FFileParser::ParseFunction(FFields& Fields)
{
	FSourceFunction Function;
	Function.Line = Report.Line;
	Function.Name = NewName(Fields, "function", "function");
	Function.Flags = Fields.Flags("flags", FunctionFlags);
	Function.Params = ParseParams(Fields, "params", ParamFlags);
	ParseReturns(Fields, Function.Params);
	Function.Display = Fields.String("display");
	Function.Category = Fields.String("category");
	Function.Compact = Fields.String("compact");
	Function.Keywords = Fields.String("keywords");
	Function.WorldContext = Fields.String("world_context");
	Function.Meta = Fields.Meta("meta");
	File.Owners.back().Functions.push_back(std::move(Function));
}

void FFileParser::ParseReturns(FFields& Fields, std::vector<FSourceProperty>& Params)
{
	std::vector<FSourceProperty> Returns = ParseParams(Fields, "returns", ReturnFlags);
	if (Returns.size() > 1)
	{
		Report.Fault("'returns' must be one object");
	}
	for (FSourceProperty& Return : Returns)
	{
		Return.Name = "ReturnValue";
		Return.Flags |= Property_Return;
		Params.push_back(std::move(Return));
	}
}

std::vector<FSourceProperty> FFileParser::ParseParams(
	FFields& Fields, std::string_view Key, std::span<const FWord> Flags)
{
	const bool bNamed = Key == "params";
	std::vector<FSourceProperty> Params;
	std::set<std::string> Names;
	for (const simdjson::dom::object& Entry : Fields.Objects(Key))
	{
		FFields ParamFields(Entry, Report);
		FSourceProperty Param;
		Param.Line = Report.Line;
		if (bNamed)
		{
			Param.Name = ParamFields.RequiredString("name");
			Param.Default = ParamFields.String("default");
			if (!Names.insert(Lowered(Param.Name)).second)
			{
				Report.Fault("parameter '" + Param.Name + "' is there twice");
			}
		}
		ParseTypeField(ParamFields, Param.Type);
		Param.Flags = ParamFields.Flags("flags", Flags);
		Param.Display = ParamFields.String("display");
		Param.Meta = ParamFields.Meta("meta");
		ParamFields.RejectOthers();
		Params.push_back(std::move(Param));
	}
	return Params;
}
} // namespace CatalogueParser

FSourceFile ParseFile(std::string_view Name, std::string_view Text, std::vector<FFault>& OutFaults)
{
	return CatalogueParser::FFileParser(Name, OutFaults).Parse(Text);
}
} // namespace Catalogue
