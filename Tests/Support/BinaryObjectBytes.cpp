#include "BinaryPackageWriter.h"

#include <cstdio>

void FObjectBytes::NameOrText(const std::string& Words)
{
	if (Layout.StepOf("Framework") >= 31)
	{
		Name(Words.empty() ? "None" : Words);
	}
	else
	{
		Text(Words);
	}
}

void FObjectBytes::WholeType(const FTypeTree& Type)
{
	Name(Type.Name);
	Int(static_cast<int32_t>(Type.Parameters.size()));
	for (const FTypeTree& Parameter : Type.Parameters)
	{
		WholeType(Parameter);
	}
}

void FObjectBytes::LegacyType(const FTypeTree& Type, const std::string& Value, const FTagOptions& Options)
{
	const auto First = [&Type] { return Type.Parameters.empty() ? std::string("None") : Type.Parameters[0].Name; };
	Name(Type.Name);
	Int(static_cast<int32_t>(Value.size()));
	Int(Options.Index);
	if (Type.Name == "StructProperty")
	{
		Name(First());
		Zeros(16);
	}
	else if (Type.Name == "BoolProperty")
	{
		Byte(Options.bTrue ? 1 : 0);
	}
	else if (Type.Name == "ByteProperty" || Type.Name == "EnumProperty" || Type.Name == "ArrayProperty"
		|| Type.Name == "SetProperty")
	{
		Name(First());
	}
	else if (Type.Name == "MapProperty")
	{
		Name(First());
		Name(Type.Parameters[1].Name);
	}
	Byte(Options.bGuid ? 1 : 0);
	Zeros(Options.bGuid ? 16 : 0);
	if (Layout.Ue5 >= 1011)
	{
		Byte(Options.bExtension ? 2 : 0);
		Zeros(Options.bExtension ? 5 : 0);
	}
}

void FObjectBytes::Tag(
	const std::string& PropertyName, const FTypeTree& Type, const std::string& Value, const FTagOptions Options)
{
	Name(PropertyName);
	if (Layout.Ue5 < 1012)
	{
		LegacyType(Type, Value, Options);
		Raw(Value);
		return;
	}
	WholeType(Type);
	Int(static_cast<int32_t>(Value.size()));
	Byte(static_cast<uint8_t>((Options.Index != 0 ? 1 : 0) | (Options.bGuid ? 2 : 0) | (Options.bExtension ? 4 : 0)
		| (Options.bTrue ? 16 : 0)));
	if (Options.Index != 0)
	{
		Int(Options.Index);
	}
	Zeros(Options.bGuid ? 16 : 0);
	if (Options.bExtension)
	{
		Byte(2);
		Zeros(5);
	}
	Raw(Value);
}

void FObjectBytes::StructArray(
	const std::string& PropertyName, const std::string& Struct, const std::vector<std::string>& Elements)
{
	std::string All;
	for (const std::string& Element : Elements)
	{
		All += Element;
	}
	FObjectBytes Value(Package);
	Value.Int(static_cast<int32_t>(Elements.size()));
	const FTypeTree Inner = {"StructProperty", {{Struct, {{"/Script/Engine", {}}}}}};
	if (Layout.Ue5 < 1012)
	{
		Value.Tag(PropertyName, Inner, All);
	}
	else
	{
		Value.Raw(All);
	}
	Tag(PropertyName, {"ArrayProperty", {Inner}}, Value.Bytes);
}

void FObjectBytes::BaseText(const std::string& Namespace, const std::string& Key, const std::string& Source)
{
	Put<uint32_t>(0);
	Byte(0);
	Text(Namespace);
	Text(Key);
	Text(Source);
	if (Layout.StepOf("Fortnite-Main") >= 268)
	{
		Int(0);
	}
}

void FObjectBytes::NoText()
{
	Put<uint32_t>(0);
	Put<int8_t>(-1);
	if (Layout.StepOf("Editor") >= 32)
	{
		Bool(false);
	}
}

void FObjectBytes::PinType(const FPinType& Type)
{
	NameOrText(Type.Category);
	NameOrText(Type.SubCategory);
	Int(Type.Object);
	if (Layout.StepOf("Framework") >= 26)
	{
		Byte(Type.Container);
	}
	else
	{
		Bool(Type.Container == 1);
		if (Layout.StepOf("Blueprints") >= 6)
		{
			Bool(Type.Container == 3);
			Bool(Type.Container == 2);
		}
	}
	const bool bWrapper = Layout.StepOf("Release") >= 32;
	if (Type.Container == 3)
	{
		NameOrText(Type.ValueCategory);
		NameOrText("");
		Int(0);
		Bool(false);
		Bool(false);
		Zeros(bWrapper ? 4 : 0);
	}
	Bool(Type.bReference);
	Bool(false); // weak
	Int(0); // member's parent
	Name("None");
	Zeros(16);
	Bool(false); // const
	Zeros(bWrapper ? 4 : 0);
	Zeros(Layout.StepOf("UE5-Release") >= 36 ? 4 : 0);
}

void FObjectBytes::PinReference(const int32_t Node, const uint32_t Id)
{
	Bool(Node == 0);
	if (Node != 0)
	{
		Int(Node);
		Guid(GuidOf(Id));
	}
}

void FObjectBytes::Pin(const int32_t Node, const FPin& Pin)
{
	Bool(false);
	Int(Node);
	Guid(GuidOf(Pin.Id));
	Int(Node);
	Guid(GuidOf(Pin.Id));
	if (Layout.StepOf("Framework") >= 31)
	{
		Name(Pin.Name);
	}
	else
	{
		Text(Pin.Name);
	}
	NoText();
	if (Layout.StepOf("UE5-Main") >= 0)
	{
		Int(-1);
	}
	Text("Tip of " + Pin.Name);
	Byte(Pin.bOutput ? 1 : 0);
	PinType(Pin.Type);
	Text(Pin.Default);
	Text("");
	Int(0);
	NoText();
	for (const std::vector<std::pair<int32_t, uint32_t>>* const List : {&Pin.Links, &Pin.SubPins})
	{
		Int(static_cast<int32_t>(List->size()));
		for (const auto& [Other, Id] : *List)
		{
			PinReference(Other, Id);
		}
	}
	PinReference(Pin.Parent.first, Pin.Parent.second);
	PinReference(0, 0);
	Zeros(16);
	Put<uint32_t>(Pin.Bits);
}

std::string FObjectBytes::GuidText(const uint32_t Id)
{
	char Digits[33];
	std::snprintf(Digits, sizeof(Digits), "A1B2C3D40000000000000000%08X", Id);
	return Digits;
}
