#include "ProjectCode/CodeTypes.h"

#include "Standalone/Catalogue.h"
#include "UObject/Class.h"

#include <algorithm>
#include <string_view>

namespace CodeTypes
{
using namespace ReflectedCode;

constexpr std::string_view SignatureEnd = "__DelegateSignature";

static std::string WithoutPrefix(const std::string& Name)
{
	return Name.empty() ? Name : Name.substr(1);
}

static std::string Find(const std::unordered_map<std::string, std::string>& Paths, const std::string& Name)
{
	const auto Found = Paths.find(Name);
	return Found == Paths.end() ? std::string() : Found->second;
}

/** Types that are their own word. */
static const std::unordered_map<std::string_view, std::string_view>& GetPlainTypes()
{
	static const std::unordered_map<std::string_view, std::string_view> Types = {{"bool", "bool"}, {"uint8", "byte"},
		{"int32", "int"}, {"int", "int"}, {"int64", "int64"}, {"float", "real:float"}, {"double", "real:double"},
		{"FName", "name"}, {"FString", "string"}, {"FText", "text"}, {"int8", "int:int8"}, {"int16", "int:int16"},
		{"uint16", "int:uint16"}, {"uint32", "int:uint32"}, {"uint64", "int64:uint64"}, {"FFieldPath", "fieldpath"}};
	return Types;
}

/** Templates that hold one class. */
static const std::unordered_map<std::string_view, std::string_view>& GetWrappers()
{
	static const std::unordered_map<std::string_view, std::string_view> Wrappers = {{"TObjectPtr", "object "},
		{"TSubclassOf", "class "}, {"TSoftObjectPtr", "softobject "}, {"TSoftClassPtr", "softclass "},
		{"TWeakObjectPtr", "weakobject "}, {"TLazyObjectPtr", "lazyobject "}, {"TScriptInterface", "interface "}};
	return Wrappers;
}
} // namespace CodeTypes

FCodeTypes::FCodeTypes()
{
	AddKnown();
}

void FCodeTypes::AddKnown()
{
	const auto AddAll = [](const UClass* Kind, auto&& Take)
	{
		FCatalogue::Get().ForEachPath(Kind,
			[&Take](const FString& Path, const FString&)
			{
				const std::string Text = ToUtf8(Path);
				Take(Text.substr(Text.find_last_of(".:") + 1), Text);
			});
	};
	AddAll(UClass::StaticClass(), [this](std::string Name, const std::string& Path) { Classes.emplace(Name, Path); });
	AddAll(UScriptStruct::StaticClass(),
		[this](std::string Name, const std::string& Path) { Structs.emplace(Name, Path); });
	AddAll(UEnum::StaticClass(), [this](std::string Name, const std::string& Path) { Enums.emplace(Name, Path); });
	AddAll(UDelegateFunction::StaticClass(),
		[this](const std::string& Name, const std::string& Path)
		{
			const std::size_t End = Name.rfind(CodeTypes::SignatureEnd);
			Delegates.emplace(Name.substr(0, End), FDelegate{Path, true});
		});
}

void FCodeTypes::Add(const std::string& Module, const ReflectedCode::FOwner& Owner)
{
	using ReflectedCode::EOwner;
	const std::string Short = CodeTypes::WithoutPrefix(Owner.Name);
	switch (Owner.Kind)
	{
	case EOwner::Class:
	case EOwner::Interface:
		Classes[Short] = Module + "." + Short;
		break;
	case EOwner::Struct:
		Structs[Short] = Module + "." + Short;
		break;
	case EOwner::Enum:
		Enums[Owner.Name] = Module + "." + Owner.Name;
		break;
	case EOwner::Delegate:
	{
		const std::string Inside = Owner.Outer.empty() ? "." : "." + CodeTypes::WithoutPrefix(Owner.Outer) + ":";
		const FDelegate Delegate = {Module + Inside + Short + std::string(CodeTypes::SignatureEnd), Owner.bMulticast};
		Delegates[Owner.Outer.empty() ? Short : CodeTypes::WithoutPrefix(Owner.Outer) + ":" + Short] = Delegate;
		Delegates.emplace(Short, Delegate);
		break;
	}
	}
}

std::string FCodeTypes::FindClass(const std::string& Name) const
{
	return CodeTypes::Find(Classes, CodeTypes::WithoutPrefix(Name));
}

std::string FCodeTypes::FindStruct(const std::string& Name) const
{
	return CodeTypes::Find(Structs, CodeTypes::WithoutPrefix(Name));
}

std::string FCodeTypes::FindEnum(const std::string& Name) const
{
	const std::size_t Inner = Name.find("::");
	return CodeTypes::Find(Enums, Name.substr(0, Inner));
}

std::string FCodeTypes::FindDelegate(const std::string& Name, const std::string& Class, bool& bOutMulticast) const
{
	const std::size_t Outer = Name.rfind("::");
	const std::string Short = CodeTypes::WithoutPrefix(Outer == std::string::npos ? Name : Name.substr(Outer + 2));
	const std::string Holder = Outer == std::string::npos ? Class : Name.substr(0, Outer);
	auto Found = Delegates.find(CodeTypes::WithoutPrefix(Holder) + ":" + Short);
	Found = Found == Delegates.end() ? Delegates.find(Short) : Found;
	if (Found == Delegates.end())
	{
		return std::string();
	}
	bOutMulticast = Found->second.bMulticast;
	return Found->second.Path;
}

std::optional<std::string> FCodeTypes::Describe(const ReflectedCode::FType& Type, const std::string& Class)
{
	std::optional<std::string> Text;
	if ((Type.Name == "TArray" || Type.Name == "TSet") && !Type.Arguments.empty())
	{
		Text = DescribeSingle(Type.Arguments[0], Class);
		Text = Text ? (Type.Name == "TArray" ? "array " : "set ") + *Text : Text;
	}
	else if (Type.Name == "TMap" && Type.Arguments.size() >= 2)
	{
		const std::optional<std::string> Key = DescribeSingle(Type.Arguments[0], Class);
		const std::optional<std::string> Value = DescribeSingle(Type.Arguments[1], Class);
		Text = Key && Value ? std::optional("map " + *Key + " -> " + *Value) : std::nullopt;
	}
	else
	{
		Text = DescribeSingle(Type, Class);
	}
	if (!Text)
	{
		AddUnknown(Type.Arguments.empty() ? Type.Name : Type.Name + "<" + Type.Arguments.back().Name + ">");
	}
	return Text;
}

std::optional<std::string> FCodeTypes::DescribeSingle(const ReflectedCode::FType& Type, const std::string& Class) const
{
	const auto Path = [](const char* Word, const std::string& Found)
	{ return Found.empty() ? std::nullopt : std::optional(Word + Found); };
	const auto Plain = CodeTypes::GetPlainTypes().find(Type.Name);
	if (Plain != CodeTypes::GetPlainTypes().end() && !Type.bPointer)
	{
		return std::string(Plain->second);
	}
	if (!Type.Arguments.empty())
	{
		return DescribeWrapper(Type);
	}
	if (Type.bPointer)
	{
		return Type.Name == "UClass" ? std::optional<std::string>("class /Script/CoreUObject.Object")
									 : Path("object ", FindClass(Type.Name));
	}
	if (const std::string Enum = FindEnum(Type.Name); !Enum.empty())
	{
		return "byte " + Enum;
	}
	bool bMulticast = false;
	if (const std::string Delegate = FindDelegate(Type.Name, Class, bMulticast); !Delegate.empty())
	{
		return (bMulticast ? "mcdelegate " : "delegate ") + Delegate;
	}
	return Path("struct ", FindStruct(Type.Name));
}

std::optional<std::string> FCodeTypes::DescribeWrapper(const ReflectedCode::FType& Type) const
{
	const std::string& Inner = Type.Arguments[0].Name;
	if (Type.Name == "TEnumAsByte")
	{
		const std::string Enum = FindEnum(Inner);
		return Enum.empty() ? std::nullopt : std::optional("byte " + Enum);
	}
	const auto Wrapper = CodeTypes::GetWrappers().find(Type.Name);
	const std::string Class = FindClass(Inner);
	if (Wrapper == CodeTypes::GetWrappers().end() || Class.empty())
	{
		return std::nullopt;
	}
	return std::string(Wrapper->second) + Class;
}
