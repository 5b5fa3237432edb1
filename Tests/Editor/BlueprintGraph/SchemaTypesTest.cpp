#include "SchemaPins.h"

#include "GraphBuilder.h"

#include <gtest/gtest.h>

namespace SchemaTypes
{
enum EExpect
{
	/** Linked as they are. */
	Fits,
	/** Linked over a node that converts. */
	Converts,
	Refused
};

struct FRow
{
	const TCHAR* Output;
	const TCHAR* Input;
	EExpect Expect;
};

static const FRow Plain[] = {
	// Execution goes to execution alone.
	{TEXT("exec"), TEXT("exec"), Fits},
	{TEXT("exec"), TEXT("bool"), Refused},
	{TEXT("int"), TEXT("exec"), Refused},
	{TEXT("exec"), TEXT("wildcard"), Refused},
	{TEXT("wildcard"), TEXT("exec"), Refused},
	// Each plain type to itself.
	{TEXT("bool"), TEXT("bool"), Fits},
	{TEXT("byte"), TEXT("byte"), Fits},
	{TEXT("int"), TEXT("int"), Fits},
	{TEXT("int64"), TEXT("int64"), Fits},
	{TEXT("float"), TEXT("float"), Fits},
	{TEXT("double"), TEXT("double"), Fits},
	{TEXT("name"), TEXT("name"), Fits},
	{TEXT("string"), TEXT("string"), Fits},
	{TEXT("text"), TEXT("text"), Fits},
	// Reals of both widths need nothing between.
	{TEXT("float"), TEXT("double"), Fits},
	{TEXT("double"), TEXT("float"), Fits},
	// Numbers.
	{TEXT("int"), TEXT("float"), Converts},
	{TEXT("int"), TEXT("double"), Converts},
	{TEXT("int"), TEXT("int64"), Converts},
	{TEXT("int"), TEXT("byte"), Converts},
	{TEXT("int"), TEXT("bool"), Converts},
	{TEXT("int64"), TEXT("int"), Converts},
	{TEXT("int64"), TEXT("double"), Converts},
	{TEXT("int64"), TEXT("byte"), Converts},
	{TEXT("byte"), TEXT("int"), Converts},
	{TEXT("byte"), TEXT("int64"), Converts},
	{TEXT("byte"), TEXT("double"), Converts},
	{TEXT("double"), TEXT("int"), Converts},
	{TEXT("float"), TEXT("int"), Converts},
	{TEXT("double"), TEXT("int64"), Converts},
	{TEXT("bool"), TEXT("int"), Converts},
	{TEXT("bool"), TEXT("byte"), Converts},
	{TEXT("bool"), TEXT("double"), Converts},
	{TEXT("double"), TEXT("bool"), Refused},
	{TEXT("byte"), TEXT("bool"), Refused},
	{TEXT("int64"), TEXT("bool"), Refused},
	// Texts of all kinds.
	{TEXT("bool"), TEXT("string"), Converts},
	{TEXT("byte"), TEXT("string"), Converts},
	{TEXT("int"), TEXT("string"), Converts},
	{TEXT("int64"), TEXT("string"), Converts},
	{TEXT("float"), TEXT("string"), Converts},
	{TEXT("double"), TEXT("string"), Converts},
	{TEXT("name"), TEXT("string"), Converts},
	{TEXT("text"), TEXT("string"), Converts},
	{TEXT("string"), TEXT("name"), Converts},
	{TEXT("string"), TEXT("text"), Converts},
	{TEXT("string"), TEXT("int"), Converts},
	{TEXT("string"), TEXT("double"), Converts},
	{TEXT("name"), TEXT("text"), Converts},
	{TEXT("bool"), TEXT("text"), Converts},
	{TEXT("int"), TEXT("text"), Converts},
	{TEXT("double"), TEXT("text"), Converts},
	{TEXT("text"), TEXT("name"), Refused},
	{TEXT("name"), TEXT("int"), Refused},
	{TEXT("string"), TEXT("bool"), Refused},
	{TEXT("text"), TEXT("int"), Refused},
	{TEXT("bool"), TEXT("name"), Refused},
	// Wildcards take any value; those for indices what can be counted.
	{TEXT("wildcard"), TEXT("int"), Fits},
	{TEXT("int"), TEXT("wildcard"), Fits},
	{TEXT("s:Vector"), TEXT("wildcard"), Fits},
	{TEXT("o:Actor"), TEXT("wildcard"), Fits},
	{TEXT("wildcard"), TEXT("wildcard"), Fits},
	{TEXT("int[]"), TEXT("wildcard"), Fits},
	{TEXT("wildcard[]"), TEXT("int[]"), Fits},
	{TEXT("string[]"), TEXT("wildcard[]"), Fits},
	{TEXT("int"), TEXT("wildcard[]"), Refused},
	{TEXT("int{}"), TEXT("wildcard[]"), Refused},
	{TEXT("int"), TEXT("index"), Fits},
	{TEXT("bool"), TEXT("index"), Fits},
	{TEXT("byte"), TEXT("index"), Fits},
	{TEXT("e:ECollisionChannel"), TEXT("index"), Fits},
	{TEXT("string"), TEXT("index"), Refused},
	{TEXT("double"), TEXT("index"), Refused},
	{TEXT("o:Actor"), TEXT("index"), Refused},
};

static const FRow References[] = {
	// Objects go up the line of classes; down it a cast is placed.
	{TEXT("o:Character"), TEXT("o:Actor"), Fits},
	{TEXT("o:Character"), TEXT("o:Pawn"), Fits},
	{TEXT("o:Actor"), TEXT("o:Object"), Fits},
	{TEXT("o:Actor"), TEXT("o:Actor"), Fits},
	{TEXT("o:Actor"), TEXT("o:Character"), Converts},
	{TEXT("o:Object"), TEXT("o:Actor"), Converts},
	{TEXT("o:Actor"), TEXT("o:ActorComponent"), Refused},
	{TEXT("o:SceneComponent"), TEXT("o:Actor"), Refused},
	{TEXT("o:Character"), TEXT("o:PlayerController"), Refused},
	{TEXT("o:StaticMeshComponent"), TEXT("o:SceneComponent"), Fits},
	{TEXT("o:Actor"), TEXT("int"), Refused},
	{TEXT("int"), TEXT("o:Actor"), Refused},
	{TEXT("o:Actor"), TEXT("bool"), Refused},
	{TEXT("o:Actor"), TEXT("string"), Converts},
	{TEXT("o:Actor"), TEXT("text"), Converts},
	{TEXT("o:Actor"), TEXT("name"), Refused},
	{TEXT("string"), TEXT("o:Actor"), Refused},
	// Classes.
	{TEXT("c:Character"), TEXT("c:Actor"), Fits},
	{TEXT("c:Actor"), TEXT("c:Character"), Converts},
	{TEXT("c:Actor"), TEXT("c:ActorComponent"), Refused},
	{TEXT("c:Actor"), TEXT("o:Actor"), Refused},
	{TEXT("o:Actor"), TEXT("c:Actor"), Refused},
	{TEXT("c:Actor"), TEXT("o:Class"), Fits},
	{TEXT("o:Class"), TEXT("c:Object"), Fits},
	{TEXT("c:Actor"), TEXT("string"), Refused},
	// Soft references.
	{TEXT("so:Character"), TEXT("so:Actor"), Fits},
	{TEXT("so:Actor"), TEXT("so:Character"), Refused},
	{TEXT("so:Actor"), TEXT("o:Actor"), Converts},
	{TEXT("so:Character"), TEXT("o:Actor"), Converts},
	{TEXT("o:Actor"), TEXT("so:Object"), Converts},
	{TEXT("sc:Actor"), TEXT("c:Actor"), Converts},
	{TEXT("c:Actor"), TEXT("sc:Object"), Converts},
	{TEXT("sc:Character"), TEXT("sc:Actor"), Fits},
	{TEXT("so:Actor"), TEXT("sc:Actor"), Refused},
	{TEXT("so:Actor"), TEXT("string"), Converts},
	{TEXT("so:StaticMesh"), TEXT("o:Actor"), Refused},
	// Interfaces.
	{TEXT("o:Pawn"), TEXT("i:NavAgentInterface"), Fits},
	{TEXT("o:Character"), TEXT("i:NavAgentInterface"), Fits},
	{TEXT("o:StaticMeshActor"), TEXT("i:NavAgentInterface"), Refused},
	{TEXT("i:NavAgentInterface"), TEXT("i:NavAgentInterface"), Fits},
	{TEXT("i:NavAgentInterface"), TEXT("i:BlendableInterface"), Refused},
	{TEXT("i:NavAgentInterface"), TEXT("o:Object"), Converts},
	{TEXT("i:NavAgentInterface"), TEXT("o:Pawn"), Converts},
	{TEXT("i:NavAgentInterface"), TEXT("int"), Refused},
};

static const FRow Structs[] = {
	{TEXT("s:Vector"), TEXT("s:Vector"), Fits},
	{TEXT("s:Vector"), TEXT("s:Rotator"), Converts},
	{TEXT("s:Rotator"), TEXT("s:Vector"), Converts},
	{TEXT("s:Vector"), TEXT("s:Transform"), Converts},
	{TEXT("s:Rotator"), TEXT("s:Transform"), Converts},
	{TEXT("s:Vector"), TEXT("s:Vector2D"), Converts},
	{TEXT("s:Vector2D"), TEXT("s:Vector"), Converts},
	{TEXT("s:Vector"), TEXT("s:LinearColor"), Converts},
	{TEXT("s:LinearColor"), TEXT("s:Vector"), Converts},
	{TEXT("s:LinearColor"), TEXT("s:Color"), Converts},
	{TEXT("s:Color"), TEXT("s:LinearColor"), Converts},
	{TEXT("s:Transform"), TEXT("s:Vector"), Refused},
	{TEXT("s:Transform"), TEXT("s:Rotator"), Refused},
	{TEXT("double"), TEXT("s:Vector"), Converts},
	{TEXT("float"), TEXT("s:Vector"), Converts},
	{TEXT("int"), TEXT("s:Vector"), Converts},
	{TEXT("double"), TEXT("s:LinearColor"), Converts},
	{TEXT("s:Vector"), TEXT("double"), Refused},
	{TEXT("s:Vector"), TEXT("string"), Converts},
	{TEXT("s:Rotator"), TEXT("string"), Converts},
	{TEXT("s:Transform"), TEXT("string"), Converts},
	{TEXT("s:LinearColor"), TEXT("string"), Converts},
	{TEXT("s:Vector"), TEXT("text"), Converts},
	{TEXT("string"), TEXT("s:Vector"), Refused},
	{TEXT("s:Vector"), TEXT("bool"), Refused},
	{TEXT("s:Vector"), TEXT("name"), Refused},
	{TEXT("s:IntPoint"), TEXT("s:Vector2D"), Converts},
	{TEXT("s:Guid"), TEXT("string"), Converts},
	{TEXT("s:HitResult"), TEXT("s:Vector"), Refused},
	{TEXT("s:HitResult"), TEXT("s:HitResult"), Fits},
	{TEXT("s:ActorTickFunction"), TEXT("s:TickFunction"), Fits},
	{TEXT("s:TickFunction"), TEXT("s:ActorTickFunction"), Refused},
	{TEXT("s:ActorTickFunction[]"), TEXT("s:TickFunction[]"), Refused},
	{TEXT("o:Actor"), TEXT("s:Vector"), Refused},
	{TEXT("s:Vector"), TEXT("o:Actor"), Refused},
	// Enums are bytes, and no enum is another.
	{TEXT("e:ECollisionChannel"), TEXT("e:ECollisionChannel"), Fits},
	{TEXT("e:ECollisionChannel"), TEXT("byte"), Fits},
	{TEXT("byte"), TEXT("e:ECollisionChannel"), Converts},
	{TEXT("e:ECollisionChannel"), TEXT("e:EMovementMode"), Refused},
	{TEXT("e:ECollisionChannel"), TEXT("string"), Converts},
	{TEXT("e:ECollisionChannel"), TEXT("name"), Converts},
	{TEXT("e:ECollisionChannel"), TEXT("int"), Converts},
	{TEXT("int"), TEXT("e:ECollisionChannel"), Refused},
	{TEXT("e:ECollisionChannel"), TEXT("s:Vector"), Refused},
};

static const FRow Containers[] = {
	{TEXT("int[]"), TEXT("int[]"), Fits},
	{TEXT("int[]"), TEXT("int"), Refused},
	{TEXT("int"), TEXT("int[]"), Converts},
	{TEXT("o:Character"), TEXT("o:Actor[]"), Converts},
	{TEXT("o:Actor"), TEXT("o:Character[]"), Refused},
	{TEXT("int[]"), TEXT("int{}"), Refused},
	{TEXT("int{}"), TEXT("int{}"), Fits},
	{TEXT("int{}"), TEXT("int[]"), Refused},
	{TEXT("int"), TEXT("int{}"), Refused},
	{TEXT("int[]"), TEXT("string[]"), Refused},
	{TEXT("float[]"), TEXT("double[]"), Fits},
	{TEXT("double[]"), TEXT("float[]"), Fits},
	{TEXT("int[]"), TEXT("double[]"), Refused},
	{TEXT("o:Character[]"), TEXT("o:Actor[]"), Fits},
	{TEXT("o:Actor[]"), TEXT("o:Character[]"), Refused},
	{TEXT("o:Actor[]"), TEXT("o:Actor"), Refused},
	{TEXT("s:Vector[]"), TEXT("s:Vector[]"), Fits},
	{TEXT("s:Vector[]"), TEXT("s:Rotator[]"), Refused},
	{TEXT("int->string"), TEXT("int->string"), Fits},
	{TEXT("int->string"), TEXT("int->name"), Refused},
	{TEXT("int->string"), TEXT("name->string"), Refused},
	{TEXT("int->string"), TEXT("int[]"), Refused},
	{TEXT("int->string"), TEXT("int"), Refused},
	{TEXT("int->float"), TEXT("int->double"), Fits},
	{TEXT("name->o:Character"), TEXT("name->o:Actor"), Fits},
	{TEXT("name->o:Actor"), TEXT("name->o:Character"), Refused},
	{TEXT("int->string"), TEXT("wildcard->wildcard"), Fits},
	{TEXT("int[]"), TEXT("string"), Refused},
	{TEXT("string[]"), TEXT("text"), Refused},
	{TEXT("e:EMovementMode[]"), TEXT("byte[]"), Fits},
};

static const FRow Delegates[] = {
	{TEXT("d:/Script/Engine.ActorBeginOverlapSignature__DelegateSignature"),
		TEXT("d:/Script/Engine.ActorBeginOverlapSignature__DelegateSignature"), Fits},
	{TEXT("d:/Script/Engine.ActorBeginOverlapSignature__DelegateSignature"),
		TEXT("d:/Script/Engine.ActorEndOverlapSignature__DelegateSignature"), Fits},
	{TEXT("d:/Script/Engine.ActorBeginOverlapSignature__DelegateSignature"),
		TEXT("d:/Script/Engine.ActorDestroyedSignature__DelegateSignature"), Refused},
	{TEXT("delegate"), TEXT("d:/Script/Engine.ActorDestroyedSignature__DelegateSignature"), Fits},
	{TEXT("delegate"), TEXT("exec"), Refused},
	{TEXT("delegate"), TEXT("o:Object"), Refused},
	{TEXT("int"), TEXT("delegate"), Refused},
	{TEXT("delegate"), TEXT("mcdelegate"), Refused},
};

static EExpect Read(ECanCreateConnectionResponse Response)
{
	switch (Response)
	{
	case CONNECT_RESPONSE_MAKE:
		return Fits;
	case CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE:
		return Converts;
	default:
		return Refused;
	}
}

template <int32 Count>
static void ExpectRows(const FRow (&Rows)[Count])
{
	for (const FRow& Row : Rows)
	{
		const FPinPair Pair(Row.Output, Row.Input);
		const FPinConnectionResponse Response = Pair.Schema->CanCreateConnection(Pair.Output, Pair.Input);
		EXPECT_EQ(Read(Response.Response), Row.Expect)
			<< ToStd(Row.Output) << " to " << ToStd(Row.Input) << ": " << ToStd(Response.Message.ToString());
		// Which pin is named first changes nothing.
		EXPECT_EQ(Pair.Schema->CanCreateConnection(Pair.Input, Pair.Output).Response, Response.Response)
			<< ToStd(Row.Output) << " from " << ToStd(Row.Input);
	}
}

TEST(SchemaTypes, PlainValues)
{
	ExpectRows(Plain);
}

TEST(SchemaTypes, ObjectsClassesAndInterfaces)
{
	ExpectRows(References);
}

TEST(SchemaTypes, StructsAndEnums)
{
	ExpectRows(Structs);
}

TEST(SchemaTypes, Containers)
{
	ExpectRows(Containers);
}

TEST(SchemaTypes, DelegatesBySignature)
{
	ExpectRows(Delegates);
}

TEST(SchemaTypes, ARefusalNamesBothTypes)
{
	EXPECT_EQ(FPinPair(TEXT("o:Actor"), TEXT("int")).Words(), "Actor Object Reference is not compatible with Integer");
	EXPECT_EQ(FPinPair(TEXT("int[]"), TEXT("int")).Words(), "Array of Integers is not compatible with Integer");
	const std::string Interface = FPinPair(TEXT("o:StaticMeshActor"), TEXT("i:NavAgentInterface")).Words();
	EXPECT_NE(Interface.find("does not implement"), std::string::npos) << Interface;
	const std::string Conversion = FPinPair(TEXT("int"), TEXT("string")).Words();
	EXPECT_EQ(Conversion, "Convert Integer to String");
}

TEST(SchemaTypes, TypesReadAsTheEditorSaysThem)
{
	static const TPair<const TCHAR*, const char*> Texts[] = {{TEXT("o:Object"), "Object Reference"},
		{TEXT("o:KismetStringLibrary"), "Kismet String Library Object Reference"}, {TEXT("int"), "Integer"},
		{TEXT("float"), "Float (single-precision)"}, {TEXT("double"), "Float (double-precision)"},
		{TEXT("text&"), "Text (by ref)"}, {TEXT("s:LinearColor"), "Linear Color Structure"},
		{TEXT("e:EAppReturnType"), "EAppReturnType Enum"}, {TEXT("c:Actor"), "Actor Class Reference"},
		{TEXT("so:Actor"), "Actor Soft Object Reference"}, {TEXT("int->string"), "Map of Integers to Strings"}};
	for (const TPair<const TCHAR*, const char*>& Row : Texts)
	{
		const FPinPair Pair(TEXT("int"), Row.Key);
		EXPECT_EQ(ToStd(UEdGraphSchema_K2::TypeToText(Pair.Input->PinType).ToString()), Row.Value);
	}
}

TEST(SchemaTypes, EquivalenceIsNarrowerThanCompatibility)
{
	const UEdGraphSchema_K2* const Schema = FPinPair(TEXT("int"), TEXT("int")).Schema;
	const auto Same = [Schema](const TCHAR* A, const TCHAR* B)
	{ return Schema->ArePinTypesEquivalent(ReadPinType(A), ReadPinType(B)); };
	EXPECT_TRUE(Same(TEXT("int"), TEXT("int")));
	EXPECT_FALSE(Same(TEXT("float"), TEXT("double")));
	EXPECT_FALSE(Same(TEXT("o:Character"), TEXT("o:Actor")));
	EXPECT_FALSE(Same(TEXT("int"), TEXT("int[]")));
	EXPECT_FALSE(Same(TEXT("int->string"), TEXT("int->name")));
	EXPECT_TRUE(Same(TEXT("int->string"), TEXT("int->string")));
}
} // namespace SchemaTypes
