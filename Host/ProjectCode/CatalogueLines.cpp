#include "ProjectCode/CatalogueLines.h"

#include "Dom/JsonObject.h"
#include "ProjectCode/CatalogueWords.h"
#include "ProjectCode/CodeDefaults.h"
#include "Standalone/JsonUtf8.h"

#include <algorithm>
#include <map>

using namespace ReflectedCode;
using namespace CatalogueWords;

namespace CatalogueLines
{
/** The path of a type without its prefix. */
static std::string Join(const std::string& Module, const std::string& Name)
{
	return Module + "." + Name.substr(std::min<std::size_t>(1, Name.size()));
}
} // namespace CatalogueLines

FCatalogueLines::FCatalogueLines(
	const std::vector<FCodeFile>& InFiles, const std::vector<ReflectedCode::FComponent>& InComponents)
	: Files(InFiles)
	, Classes(InFiles, Types)
{
	for (const FComponent& Component : InComponents)
	{
		ComponentsByOwner[Component.Owner].push_back(&Component);
	}
	for (const FCodeFile& File : Files)
	{
		for (const FOwner& Owner : File.Owners)
		{
			Types.Add(File.Module, Owner);
		}
	}
}

std::map<std::string, std::vector<std::string>> FCatalogueLines::Write()
{
	std::map<std::string, std::vector<std::string>> Result;
	for (const FCodeFile& File : Files)
	{
		Lines = &Result[File.Module];
		for (const FOwner& Owner : File.Owners)
		{
			WriteOwner(File, Owner);
		}
	}
	return Result;
}

void FCatalogueLines::AddLine(const FJsonObject& Line)
{
	std::string Text;
	JsonUtf8::Write(Line, Text);
	Lines->push_back(std::move(Text));
}

void FCatalogueLines::WriteOwner(const FCodeFile& File, const FOwner& Owner)
{
	switch (Owner.Kind)
	{
	case EOwner::Class:
	case EOwner::Interface:
		WriteClass(File, Owner);
		break;
	case EOwner::Struct:
		WriteStruct(File, Owner);
		break;
	case EOwner::Enum:
		WriteEnum(File, Owner);
		break;
	case EOwner::Delegate:
		WriteDelegate(File, Owner);
		break;
	}
}

void FCatalogueLines::WriteClass(const FCodeFile& File, const FOwner& Owner)
{
	FJsonObject Line;
	SetText(Line, TEXT("class"), CatalogueLines::Join(File.Module, Owner.Name));
	SetText(Line, TEXT("header"), File.Header);
	SetText(Line, TEXT("parent"),
		Owner.Kind == EOwner::Interface ? "/Script/CoreUObject.Interface" : Classes.FindParent(Owner, Notes));
	SetFlags(Line, Classes.FlagsOf(Owner));
	SetText(Line, TEXT("display"), Owner.Specifiers.GetMeta("DisplayName"));
	TArray<TSharedPtr<FJsonValue>> Interfaces;
	for (std::size_t Index = 1; Index < Owner.Parents.size(); ++Index)
	{
		if (const std::string Path = Types.FindClass(Owner.Parents[Index]); !Path.empty())
		{
			Interfaces.Add(MakeShared<FJsonValueString>(FromUtf8(Path)));
		}
	}
	if (!Interfaces.IsEmpty())
	{
		Line.SetArrayField(TEXT("interfaces"), Interfaces);
	}
	AddLine(Line);
	for (const FVariable& Property : Owner.Variables)
	{
		WriteProperty(Property, Owner.Name);
	}
	WriteComponents(Owner);
	for (const FFunction& Function : Owner.Functions)
	{
		WriteFunction(Function, Owner.Name);
	}
}

void FCatalogueLines::WriteStruct(const FCodeFile& File, const FOwner& Owner)
{
	FJsonObject Line;
	SetText(Line, TEXT("struct"), CatalogueLines::Join(File.Module, Owner.Name));
	SetText(Line, TEXT("header"), File.Header);
	SetText(Line, TEXT("parent"), Owner.Parents.empty() ? std::string() : Types.FindStruct(Owner.Parents[0]));
	SetFlags(Line,
		Owner.Specifiers.Has("BlueprintType") ? std::vector<std::string>{"blueprint_type"}
											  : std::vector<std::string>());
	AddLine(Line);
	for (const FVariable& Property : Owner.Variables)
	{
		WriteProperty(Property, Owner.Name);
	}
}

void FCatalogueLines::WriteEnum(const FCodeFile& File, const FOwner& Owner)
{
	FJsonObject Line;
	SetText(Line, TEXT("enum"), File.Module + "." + Owner.Name);
	SetText(Line, TEXT("form"),
		Owner.EnumForm == EEnumForm::Class			  ? "class"
			: Owner.EnumForm == EEnumForm::Namespaced ? "namespaced"
													  : "regular");
	SetText(Line, TEXT("header"), File.Header);
	std::vector<std::string> Flags;
	if (Owner.Specifiers.Has("BlueprintType"))
	{
		Flags.emplace_back("blueprint_type");
	}
	if (Owner.Specifiers.HasMeta("Bitflags"))
	{
		Flags.emplace_back("bitflags");
	}
	SetFlags(Line, Flags);
	TArray<TSharedPtr<FJsonValue>> Values;
	std::map<std::string, std::int64_t> Known;
	std::int64_t Last = -1;
	for (const FEnumerator& Enumerator : Owner.Enumerators)
	{
		const auto Value = MakeShared<FJsonObject>();
		SetText(*Value, TEXT("name"), Enumerator.Name);
		const std::optional<std::int64_t> Number = ReadEnumValue(Enumerator.Value, Known);
		Last = Number.value_or(Last + 1);
		Known[Enumerator.Name] = Last;
		if (Number)
		{
			Value->SetNumberField(TEXT("value"), static_cast<double>(*Number));
		}
		else if (!Enumerator.Value.empty())
		{
			Notes.push_back("the value of '" + Owner.Name + "::" + Enumerator.Name + "' is no plain number ('"
				+ Enumerator.Value + "'); it is taken as one more than the last");
		}
		SetText(*Value, TEXT("display"), Enumerator.Specifiers.GetMeta("DisplayName"));
		if (Enumerator.Specifiers.HasMeta("Hidden"))
		{
			Value->SetBoolField(TEXT("hidden"), true);
		}
		Values.Add(MakeShared<FJsonValueObject>(Value));
	}
	Line.SetArrayField(TEXT("values"), Values);
	AddLine(Line);
}

void FCatalogueLines::WriteDelegate(const FCodeFile& File, const FOwner& Owner)
{
	bool bMulticast = false;
	FJsonObject Line;
	SetText(Line, TEXT("delegate"), Types.FindDelegate(Owner.Name, Owner.Outer, bMulticast));
	SetFlags(Line, Owner.bMulticast ? std::vector<std::string>{"multicast"} : std::vector<std::string>());
	if (SetParams(Line, Owner.Functions[0], Owner.Outer))
	{
		AddLine(Line);
	}
}

void FCatalogueLines::WriteProperty(const FVariable& Property, const std::string& Class)
{
	const std::optional<std::string> Type = Types.Describe(Property.Type, Class);
	if (!Type)
	{
		return;
	}
	FJsonObject Line;
	const FSpecifiers& Specifiers = Property.Specifiers;
	if (Specifiers.Has("BlueprintAssignable") && Type->starts_with("mcdelegate "))
	{
		SetText(Line, TEXT("dispatcher"), Property.Name);
		SetText(Line, TEXT("signature"), Type->substr(Type->find('/')));
		SetFlags(Line,
			Specifiers.Has("BlueprintCallable") ? std::vector<std::string>{"callable"} : std::vector<std::string>());
		SetText(Line, TEXT("category"), Specifiers.Get("Category"));
		AddLine(Line);
		return;
	}
	SetText(Line, TEXT("property"), Property.Name);
	SetText(Line, TEXT("type"), *Type);
	SetFlags(Line, PropertyFlags(Specifiers));
	SetText(Line, TEXT("default"), ReadCodeDefault(*Type, Property.Default).value_or(std::string()));
	SetText(Line, TEXT("display"), Specifiers.GetMeta("DisplayName"));
	SetText(Line, TEXT("category"), Specifiers.Get("Category"));
	AddLine(Line);
}

bool FCatalogueLines::SetParams(FJsonObject& Line, const FFunction& Function, const std::string& Class)
{
	TArray<TSharedPtr<FJsonValue>> Params;
	for (const FVariable& Param : Function.Params)
	{
		const std::optional<std::string> Type = Types.Describe(Param.Type, Class);
		if (!Type)
		{
			return false;
		}
		const auto Json = MakeShared<FJsonObject>();
		SetText(*Json, TEXT("name"), Param.Name);
		SetText(*Json, TEXT("type"), *Type);
		SetFlags(*Json, ParamFlags(Param));
		SetText(*Json, TEXT("default"), ReadCodeDefault(*Type, Param.Default).value_or(std::string()));
		SetText(*Json, TEXT("display"), Param.Specifiers.Get("DisplayName"));
		Params.Add(MakeShared<FJsonValueObject>(Json));
	}
	if (!Params.IsEmpty())
	{
		Line.SetArrayField(TEXT("params"), Params);
	}
	if (Function.Return.Name == "void" || Function.Return.Name.empty())
	{
		return true;
	}
	const std::optional<std::string> Type = Types.Describe(Function.Return, Class);
	if (Type)
	{
		const auto Json = MakeShared<FJsonObject>();
		SetText(*Json, TEXT("type"), *Type);
		SetText(*Json, TEXT("display"), Function.Specifiers.GetMeta("ReturnDisplayName"));
		Line.SetObjectField(TEXT("returns"), Json);
	}
	return Type.has_value();
}

void FCatalogueLines::WriteFunction(const FFunction& Function, const std::string& Class)
{
	const std::vector<std::string> Flags = FunctionFlags(Function);
	if (Flags.empty())
	{
		return;
	}
	const FSpecifiers& Specifiers = Function.Specifiers;
	FJsonObject Line;
	SetText(Line, TEXT("function"), Function.Name);
	SetFlags(Line, Flags);
	if (!SetParams(Line, Function, Class))
	{
		return;
	}
	SetText(Line, TEXT("display"), Specifiers.GetMeta("DisplayName"));
	SetText(Line, TEXT("category"), Specifiers.Get("Category"));
	SetText(Line, TEXT("compact"), Specifiers.GetMeta("CompactNodeTitle"));
	SetText(Line, TEXT("keywords"), Specifiers.GetMeta("Keywords"));
	SetText(Line, TEXT("world_context"), Specifiers.GetMeta("WorldContext"));
	SetMeta(Line, Specifiers);
	AddLine(Line);
}

void FCatalogueLines::WriteComponents(const FOwner& Owner)
{
	const auto Own = ComponentsByOwner.find(Owner.Name);
	if (Own == ComponentsByOwner.end())
	{
		return;
	}
	const auto NameOf = [&Own](const std::string& Member)
	{
		const auto Found = std::find_if(Own->second.begin(), Own->second.end(),
			[&Member](const FComponent* Component) { return Component->Member == Member; });
		return Found == Own->second.end() || Member.empty() ? std::string() : (*Found)->Name;
	};
	for (const FComponent* const Component : Own->second)
	{
		const std::string Class = Types.FindClass(Component->Class);
		if (Class.empty())
		{
			Types.AddUnknown(Component->Class);
			continue;
		}
		FJsonObject Line;
		SetText(Line, TEXT("component"), Component->Name);
		SetText(Line, TEXT("class"), Class);
		const bool bMember = std::any_of(Owner.Variables.begin(), Owner.Variables.end(),
			[Component](const FVariable& Variable) { return Variable.Name == Component->Member; });
		SetText(Line, TEXT("property"), bMember ? Component->Member : std::string());
		SetText(Line, TEXT("attach"), NameOf(Component->AttachedTo));
		AddLine(Line);
	}
}
