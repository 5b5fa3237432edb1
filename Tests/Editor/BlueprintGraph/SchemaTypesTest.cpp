#include "SchemaPins.h"

#include "GraphBuilder.h"
#include "UObject/UnrealType.h"

#include <gtest/gtest.h>

namespace SchemaTypes
{
/** Types that an output is asked against, each list parted by blanks. */
struct FRow
{
	const TCHAR* Output;
	/** Linked as they are. */
	const TCHAR* Fits;
	/** Linked over a node that converts. */
	const TCHAR* Converts;
	const TCHAR* Refused;
};

static const FRow Plain[] = {
	// Execution goes to execution alone.
	{TEXT("exec"), TEXT("exec"), TEXT(""), TEXT("bool string o:Actor int[] wildcard delegate mcdelegate s:Vector")},
	{TEXT("bool"), TEXT("bool wildcard index"), TEXT("int byte float double string text bool[]"),
		TEXT("exec int64 name s:Vector o:Actor e:EMovementMode delegate bool{} wildcard{}")},
	{TEXT("byte"), TEXT("byte index wildcard"),
		TEXT("int int64 float double string text byte[] e:ECollisionChannel e:EMovementMode"),
		TEXT("bool name exec o:Actor s:Vector byte{}")},
	{TEXT("int"), TEXT("int index wildcard"),
		TEXT("float double int64 byte bool string text s:Vector s:IntVector int[] wildcard[]"),
		TEXT("name exec o:Actor c:Actor e:ECollisionChannel s:IntPoint s:LinearColor s:Rotator s:Transform s:Vector2D "
			 "double[] int{} delegate i:NavAgentInterface wildcard{} wildcard->wildcard")},
	{TEXT("int64"), TEXT("int64 wildcard"), TEXT("int double float byte string text int64[]"),
		TEXT("bool name s:Vector index e:ECollisionChannel")},
	// Reals of both widths need nothing between.
	{TEXT("float"), TEXT("float double wildcard"),
		TEXT("int int64 string text s:Vector s:LinearColor float[] double[]"), TEXT("bool byte name index int[]")},
	{TEXT("double"), TEXT("double float wildcard"),
		TEXT("int int64 string text s:Vector s:Vector2D s:LinearColor float[]"),
		TEXT("bool byte name exec s:Rotator s:Transform s:Color index o:Actor")},
	{TEXT("name"), TEXT("name wildcard"), TEXT("string text name[]"),
		TEXT("bool int double byte s:Guid s:Vector o:Actor c:Actor e:EMovementMode exec index")},
	{TEXT("string"), TEXT("string wildcard"), TEXT("name text int int64 float double string[]"),
		TEXT("bool byte s:Vector s:Rotator s:LinearColor s:Guid o:Actor o:Object c:Actor so:StaticMesh e:EMovementMode "
			 "text[] exec index delegate")},
	{TEXT("text"), TEXT("text wildcard"), TEXT("string text[]"),
		TEXT("name bool int int64 double byte s:Vector o:Actor exec")},
	// A wildcard takes any value; one that stands for an index what can be counted.
	{TEXT("wildcard"),
		TEXT("wildcard int string o:Actor s:Vector delegate e:EMovementMode i:NavAgentInterface c:Actor"),
		TEXT("int[] wildcard[]"), TEXT("exec int{} wildcard->wildcard")},
	{TEXT("index"), TEXT("index int bool byte e:EMovementMode"), TEXT(""), TEXT("string double o:Actor exec")},
};

static const FRow References[] = {
	// Objects go up the line of classes; down it a cast is placed.
	{TEXT("o:Character"), TEXT("o:Character o:Pawn o:Actor o:Object i:NavAgentInterface wildcard"),
		TEXT("o:Character[] o:Actor[] c:Actor c:Character c:Object so:Actor so:Character so:Object string text"),
		TEXT("o:PlayerController o:ActorComponent c:PlayerController so:PlayerController i:BlendableInterface")},
	{TEXT("o:Actor"), TEXT("o:Actor o:Object wildcard"),
		TEXT("o:Character o:Pawn c:Actor c:Object so:Actor so:Object string text o:Object[]"),
		TEXT(
			"o:ActorComponent o:Character[] c:Character c:ActorComponent so:Character sc:Actor int byte double bool name "
			"s:Vector index e:EMovementMode exec delegate i:BlendableInterface o:Actor{}")},
	{TEXT("o:Object"), TEXT("o:Object"), TEXT("o:Actor o:StaticMesh c:Object string text"),
		TEXT("c:Actor name bool exec")},
	{TEXT("o:StaticMeshComponent"), TEXT("o:SceneComponent o:ActorComponent o:Object"), TEXT("c:SceneComponent string"),
		TEXT("o:Actor o:SkeletalMeshComponent c:Actor s:Transform")},
	{TEXT("o:StaticMeshActor"), TEXT("o:Actor"), TEXT("so:Actor"), TEXT("i:NavAgentInterface")},
	// Classes.
	{TEXT("c:Character"), TEXT("c:Character c:Pawn c:Actor c:Object o:Class"), TEXT("sc:Actor sc:Character c:Actor[]"),
		TEXT("o:Actor o:Object c:ActorComponent sc:PlayerController so:Actor string text name int s:Vector")},
	{TEXT("c:Actor"), TEXT("c:Actor c:Object o:Class"), TEXT("c:Character sc:Actor sc:Object"),
		TEXT("c:ActorComponent sc:Character o:Actor string c:Character[] exec")},
	{TEXT("o:Class"), TEXT("c:Object o:Object"), TEXT("string"), TEXT("o:Actor int")},
	// Soft references are resolved, and made of what is at hand.
	{TEXT("so:Character"), TEXT("so:Character so:Actor so:Object"), TEXT("o:Character o:Actor o:Object string"),
		TEXT("o:PlayerController sc:Actor c:Character name text s:Vector so:StaticMesh")},
	{TEXT("so:Actor"), TEXT("so:Actor"), TEXT("o:Actor so:Actor[] s:SoftObjectPath"),
		TEXT("so:Character sc:Actor c:Actor")},
	{TEXT("so:StaticMesh"), TEXT("so:StaticMesh so:Object"), TEXT("o:StaticMesh"), TEXT("o:Actor so:Actor int")},
	{TEXT("sc:Actor"), TEXT("sc:Actor sc:Object"), TEXT("c:Actor c:Object string"),
		TEXT("sc:Character o:Actor o:Object so:Actor c:ActorComponent text")},
	// Interfaces.
	{TEXT("i:NavAgentInterface"), TEXT("i:NavAgentInterface wildcard"),
		TEXT("o:Object o:Pawn o:Actor i:NavAgentInterface[]"),
		TEXT("i:BlendableInterface int string c:Actor so:Actor s:Vector exec")},
};

static const FRow Structs[] = {
	{TEXT("s:Vector"), TEXT("s:Vector wildcard"),
		TEXT("s:Rotator s:Transform s:Vector2D s:LinearColor s:Quat string text s:Vector[]"),
		TEXT("s:Vector4 s:Color s:IntPoint double int byte bool name o:Actor s:HitResult s:Rotator[] exec")},
	{TEXT("s:Rotator"), TEXT("s:Rotator"), TEXT("s:Vector s:Transform s:Quat string text"),
		TEXT("s:LinearColor double s:Vector2D")},
	{TEXT("s:Transform"), TEXT("s:Transform"), TEXT("s:Matrix string text"), TEXT("s:Vector s:Rotator s:Quat name")},
	{TEXT("s:Vector2D"), TEXT("s:Vector2D"), TEXT("s:Vector s:IntPoint string text"),
		TEXT("s:Rotator double s:LinearColor")},
	{TEXT("s:Vector4"), TEXT("s:Vector4"), TEXT("s:Vector s:Rotator s:Quat"), TEXT("s:LinearColor string")},
	{TEXT("s:Quat"), TEXT("s:Quat"), TEXT("s:Rotator"), TEXT("s:Vector s:Transform string")},
	{TEXT("s:Matrix"), TEXT("s:Matrix"), TEXT("s:Transform s:Rotator string"), TEXT("s:Vector text")},
	{TEXT("s:LinearColor"), TEXT("s:LinearColor"), TEXT("s:Color s:Vector string text"),
		TEXT("double s:Rotator s:Vector4")},
	{TEXT("s:Color"), TEXT("s:Color"), TEXT("s:LinearColor"), TEXT("s:Vector string int")},
	{TEXT("s:IntPoint"), TEXT("s:IntPoint"), TEXT("s:Vector2D string"), TEXT("s:Vector int text")},
	{TEXT("s:IntVector"), TEXT("s:IntVector"), TEXT("s:Vector string"), TEXT("int s:IntPoint")},
	{TEXT("s:Guid"), TEXT("s:Guid"), TEXT("string"), TEXT("name text int")},
	{TEXT("s:SoftObjectPath"), TEXT("s:SoftObjectPath"), TEXT("so:Object"), TEXT("o:Object c:Object int")},
	{TEXT("s:InputActionValue"), TEXT("s:InputActionValue"), TEXT("bool double float s:Vector2D s:Vector string"),
		TEXT("int name s:Rotator text")},
	{TEXT("s:Key"), TEXT("s:Key"), TEXT("text"), TEXT("string name int")},
	{TEXT("s:PrimaryAssetId"), TEXT("s:PrimaryAssetId"), TEXT("string"), TEXT("name o:Object")},
	{TEXT("s:Timespan"), TEXT("s:Timespan"), TEXT(""), TEXT("double string s:DateTime")},
	{TEXT("s:HitResult"), TEXT("s:HitResult"), TEXT(""), TEXT("s:Vector o:Actor string bool")},
	// A child struct that adds nothing lies in memory as its parent does, alone and in a list; one that adds does not.
	{TEXT("s:ActorTickFunction"), TEXT("s:TickFunction s:ActorTickFunction"), TEXT("s:TickFunction[]"),
		TEXT("s:Vector")},
	{TEXT("s:ActorTickFunction[]"), TEXT("s:TickFunction[]"), TEXT(""), TEXT("s:TickFunction")},
	{TEXT("s:TickFunction"), TEXT("s:TickFunction"), TEXT(""), TEXT("s:ActorTickFunction")},
	{TEXT("s:Vector_NetQuantize"), TEXT("s:Vector"), TEXT(""), TEXT("s:Vector_NetQuantizeNormal double")},
	{TEXT("s:PointerEvent"), TEXT("s:InputEvent"), TEXT(""), TEXT("s:KeyEvent")},
	// Enums are bytes, and no enum is another.
	{TEXT("e:ECollisionChannel"), TEXT("e:ECollisionChannel byte index wildcard"),
		TEXT("string name int byte[] e:ECollisionChannel[]"),
		TEXT("e:EMovementMode bool s:Vector o:Actor exec e:EMovementMode[]")},
};

static const FRow Containers[] = {
	{TEXT("int[]"), TEXT("int[] wildcard wildcard[]"), TEXT(""),
		TEXT("int int{} string[] double[] bool string wildcard{} wildcard->wildcard int->string exec index")},
	{TEXT("float[]"), TEXT("float[] double[]"), TEXT(""), TEXT("float int[] double{}")},
	{TEXT("double[]"), TEXT("float[]"), TEXT(""), TEXT("s:Vector[]")},
	{TEXT("string[]"), TEXT("string[] wildcard[]"), TEXT(""), TEXT("text string text[] name[]")},
	{TEXT("o:Character[]"), TEXT("o:Character[] o:Actor[]"), TEXT(""), TEXT("o:Actor o:Character o:Actor{}")},
	{TEXT("o:Actor[]"), TEXT("o:Object[]"), TEXT(""), TEXT("o:Character[] o:Actor c:Actor[] so:Actor[]")},
	{TEXT("s:Vector[]"), TEXT("s:Vector[]"), TEXT(""), TEXT("s:Rotator[] s:Vector string")},
	{TEXT("e:EMovementMode[]"), TEXT("byte[] e:EMovementMode[]"), TEXT(""), TEXT("e:ECollisionChannel[] int[]")},
	{TEXT("byte[]"), TEXT("byte[]"), TEXT(""), TEXT("e:EMovementMode[] int[]")},
	{TEXT("wildcard[]"), TEXT("int[] wildcard[] wildcard"), TEXT(""), TEXT("int int{} exec")},
	// A set is made an array; nothing else becomes another container.
	{TEXT("int{}"), TEXT("int{} wildcard wildcard{}"), TEXT("int[]"),
		TEXT("int string{} string[] wildcard[] int->int")},
	{TEXT("o:Character{}"), TEXT("o:Character{} o:Actor{}"), TEXT("o:Actor[]"), TEXT("o:Actor o:PlayerController{}")},
	{TEXT("float{}"), TEXT("double{}"), TEXT(""), TEXT("float")},
	// Keys of a map go where they fit; values are written through it as well, so they must be the same.
	{TEXT("int->string"), TEXT("int->string wildcard->wildcard wildcard int->wildcard"), TEXT(""),
		TEXT("int->name name->string string->int int[] string[] int{} int exec")},
	{TEXT("int->float"), TEXT("int->float int->double"), TEXT(""), TEXT("int->int")},
	{TEXT("name->o:Character"), TEXT("name->o:Character"), TEXT(""), TEXT("name->o:Actor name->c:Character")},
	{TEXT("o:Character->int"), TEXT("o:Character->int o:Actor->int"), TEXT(""), TEXT("o:PlayerController->int")},
	{TEXT("name->e:EMovementMode"), TEXT("name->e:EMovementMode"), TEXT(""),
		TEXT("name->byte name->e:ECollisionChannel")},
};

#define OVERLAP TEXT("d:/Script/Engine.ActorBeginOverlapSignature__DelegateSignature")
#define END_OVERLAP TEXT("d:/Script/Engine.ActorEndOverlapSignature__DelegateSignature")
#define DESTROYED TEXT("d:/Script/Engine.ActorDestroyedSignature__DelegateSignature")

static const FRow Delegates[] = {{OVERLAP, OVERLAP, TEXT(""), DESTROYED},
	{OVERLAP, END_OVERLAP, TEXT(""), TEXT("exec int")},
	{TEXT("delegate"), DESTROYED, TEXT(""), TEXT("exec o:Object mcdelegate string bool")},
	{TEXT("mcdelegate"), TEXT("mcdelegate"), TEXT(""), TEXT("delegate exec int")}};

static std::string Said(const UEdGraphPin* Pin)
{
	return ToStd(UEdGraphSchema_K2::TypeToText(Pin->PinType).ToString());
}

static void ExpectResponse(
	const TCHAR* Output, const TCHAR* Inputs, ECanCreateConnectionResponse Expected, int32& OutCount)
{
	TArray<FString> Names;
	FString(Inputs).ParseIntoArray(Names, TEXT(" "));
	for (const FString& Name : Names)
	{
		const FPinPair Pair(Output, Name);
		const FPinConnectionResponse Response = Pair.Schema->CanCreateConnection(Pair.Output, Pair.Input);
		const std::string Message = ToStd(Response.Message.ToString());
		EXPECT_EQ(Response.Response, Expected) << ToStd(Output) << " to " << ToStd(Name) << ": " << Message;
		// Which pin is named first changes nothing.
		EXPECT_EQ(Pair.Schema->CanCreateConnection(Pair.Input, Pair.Output).Response, Expected)
			<< ToStd(Output) << " from " << ToStd(Name);
		if (Expected != CONNECT_RESPONSE_MAKE)
		{
			EXPECT_NE(Message.find(Said(Pair.Output)), std::string::npos) << ToStd(Name) << ": " << Message;
			EXPECT_NE(Message.find(Said(Pair.Input)), std::string::npos) << ToStd(Name) << ": " << Message;
		}
		// What is said to go is done, and what is refused changes nothing.
		EXPECT_EQ(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input), Expected != CONNECT_RESPONSE_DISALLOW)
			<< ToStd(Output) << " to " << ToStd(Name) << ": " << Message;
		EXPECT_EQ(Pair.Input->LinkedTo.Num(), Expected == CONNECT_RESPONSE_DISALLOW ? 0 : 1) << ToStd(Name);
		++OutCount;
	}
}

template <int32 Count>
static void ExpectRows(const FRow (&Rows)[Count], int32 AtLeast)
{
	int32 Pairs = 0;
	for (const FRow& Row : Rows)
	{
		ExpectResponse(Row.Output, Row.Fits, CONNECT_RESPONSE_MAKE, Pairs);
		ExpectResponse(Row.Output, Row.Converts, CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE, Pairs);
		ExpectResponse(Row.Output, Row.Refused, CONNECT_RESPONSE_DISALLOW, Pairs);
	}
	EXPECT_GE(Pairs, AtLeast);
}

TEST(SchemaTypes, PlainValues)
{
	ExpectRows(Plain, 100);
}

TEST(SchemaTypes, ObjectsClassesAndInterfaces)
{
	ExpectRows(References, 80);
}

TEST(SchemaTypes, StructsAndEnums)
{
	ExpectRows(Structs, 80);
}

TEST(SchemaTypes, Containers)
{
	ExpectRows(Containers, 60);
}

TEST(SchemaTypes, DelegatesBySignature)
{
	ExpectRows(Delegates, 10);
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

TEST(SchemaTypes, ADelegateIsRefusedWithWhatItIsCalledWith)
{
	EXPECT_EQ(FPinPair(OVERLAP, DESTROYED).Words(),
		"Delegate (Actor Object Reference, Actor Object Reference) is not compatible with Delegate (Actor Object "
		"Reference) (the signatures differ)");
}

TEST(SchemaTypes, AStructThatAddsToItsParentDoesNotStandForIt)
{
	MakeLooseGraph();
	UObject* const Package = GetTransientPackageAsObject();
	UScriptStruct* const Base = FindObject<UScriptStruct>(nullptr, TEXT("/Script/CoreUObject.Vector"));
	UScriptStruct* const Same = NewObject<UScriptStruct>(Package, FName(TEXT("SameAsVector")));
	Same->SetSuperStruct(Base);
	Same->Link();
	UScriptStruct* const More = NewObject<UScriptStruct>(Package, FName(TEXT("MoreThanVector")));
	More->SetSuperStruct(Same);
	More->AddProperty(new FIntProperty(FFieldVariant(More), TEXT("Extra")));
	More->Link();
	const auto Fits = [](UScriptStruct* Output, UScriptStruct* Input)
	{
		FEdGraphPinType Out = ReadPinType(TEXT("s:Vector"));
		FEdGraphPinType In = Out;
		Out.PinSubCategoryObject = Output;
		In.PinSubCategoryObject = Input;
		return GetDefault<UEdGraphSchema_K2>()->ArePinTypesCompatible(Out, In);
	};
	EXPECT_TRUE(Fits(Same, Base));
	EXPECT_FALSE(Fits(Base, Same));
	EXPECT_FALSE(Fits(More, Same));
	EXPECT_FALSE(Fits(More, Base));
	EXPECT_TRUE(Fits(More, More));
}

TEST(SchemaTypes, SelfIsTheClassOfTheGraphThatAsks)
{
	MakeLooseGraph();
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	FEdGraphPinType Self = ReadPinType(TEXT("o:Object"));
	Self.PinSubCategory = UEdGraphSchema_K2::PSC_Self;
	Self.PinSubCategoryObject = nullptr;
	const UClass* const Pawn = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Pawn"));
	EXPECT_TRUE(Schema->ArePinTypesCompatible(Self, ReadPinType(TEXT("o:Actor")), Pawn));
	EXPECT_TRUE(Schema->ArePinTypesCompatible(Self, ReadPinType(TEXT("i:NavAgentInterface")), Pawn));
	EXPECT_FALSE(Schema->ArePinTypesCompatible(Self, ReadPinType(TEXT("o:Character")), Pawn));
	EXPECT_TRUE(Schema->ArePinTypesCompatible(ReadPinType(TEXT("o:Character")), Self, Pawn));
	EXPECT_FALSE(Schema->ArePinTypesCompatible(ReadPinType(TEXT("o:Actor")), Self, Pawn));
	// Nobody to stand for: an object it is in any case.
	EXPECT_TRUE(Schema->ArePinTypesCompatible(Self, ReadPinType(TEXT("o:Object"))));
	EXPECT_FALSE(Schema->ArePinTypesCompatible(Self, ReadPinType(TEXT("o:Actor"))));
}

TEST(SchemaTypes, TypesReadAsTheEditorSaysThem)
{
	static const TPair<const TCHAR*, const char*> Texts[] = {{TEXT("o:Object"), "Object Reference"},
		{TEXT("o:KismetStringLibrary"), "Kismet String Library Object Reference"}, {TEXT("int"), "Integer"},
		{TEXT("float"), "Float (single-precision)"}, {TEXT("double"), "Float (double-precision)"},
		{TEXT("text&"), "Text (by ref)"}, {TEXT("s:LinearColor"), "Linear Color Structure"},
		{TEXT("s:Vector"), "Vector"}, {TEXT("s:Transform[]"), "Array of Transforms"},
		{TEXT("e:EAppReturnType"), "EAppReturnType Enum"}, {TEXT("c:Actor"), "Actor Class Reference"},
		{TEXT("so:Actor"), "Actor Soft Object Reference"}, {TEXT("int->string"), "Map of Integers to Strings"}};
	for (const TPair<const TCHAR*, const char*>& Row : Texts)
	{
		const FPinPair Pair(TEXT("int"), Row.Key);
		EXPECT_EQ(ToStd(UEdGraphSchema_K2::TypeToText(Pair.Input->PinType).ToString()), Row.Value);
	}
}
} // namespace SchemaTypes
