#include "Catalogue/CatalogueMetaData.h"
#include "Catalogue/CatalogueObjects.h"
#include "Objects/ObjectTable.h"

namespace Catalogue
{
int32 NumFilledStructs = 0;

namespace CatalogueMaterialise
{
constexpr EObjectFlags ReflectionFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone | RF_MarkAsNative);
/** What a class takes over from its parent. */
constexpr uint32 InheritedClassFlags = CLASS_Transient | CLASS_NotPlaceable | CLASS_Const | CLASS_Deprecated
	| CLASS_DefaultToInstanced;

static const FString& True()
{
	static const FString Text(TEXT("true"));
	return Text;
}

/** A bit of a record and what stands for it in an object. */
struct FFlagRow
{
	uint32 Record;
	uint32 Object;
};

template <std::size_t NumRows>
uint32 Translate(uint32 Record, const FFlagRow (&Rows)[NumRows])
{
	uint32 Result = 0;
	for (const FFlagRow& Row : Rows)
	{
		Result |= Record & Row.Record ? Row.Object : 0U;
	}
	return Result;
}

constexpr FFlagRow ClassFlagRows[] = {
	{Owner_Abstract, CLASS_Abstract},
	{Owner_Interface, CLASS_Interface | CLASS_Abstract},
	{Owner_Const, CLASS_Const},
	{Owner_Deprecated, CLASS_Deprecated | CLASS_NotPlaceable},
	{Owner_Component | Owner_Widget, CLASS_DefaultToInstanced},
};

constexpr FFlagRow FunctionFlagRows[] = {
	{Function_Event | Function_NativeEvent, FUNC_Event | FUNC_BlueprintEvent},
	{Function_NativeEvent, FUNC_Native},
	{Function_Static, FUNC_Static | FUNC_Final},
	{Function_Callable, FUNC_BlueprintCallable},
	{Function_Pure, FUNC_BlueprintPure | FUNC_BlueprintCallable},
	{Function_Const, FUNC_Const},
};

static EFunctionFlags ToFunctionFlags(const FImageView& View, const FFunctionRecord& Record)
{
	uint32 Result = Translate(Record.Flags, FunctionFlagRows);
	Result |= static_cast<uint32>(Record.Flags & Function_Protected ? FUNC_Protected : FUNC_Public);
	Result |= Record.Flags & Function_Event ? 0U : static_cast<uint32>(FUNC_Native);
	for (uint32 Index = 0; Index < Record.Params.Num; ++Index)
	{
		const uint32 Flags = View.Property(Record.Params.First + Index).Flags;
		const bool bComesBack = (Flags & (Property_Out | Property_Ref)) && !(Flags & Property_Return);
		Result |= bComesBack ? static_cast<uint32>(FUNC_HasOutParms) : 0U;
	}
	return static_cast<EFunctionFlags>(Result);
}

static UClass* MakeClass(FLoadedImage& Image, const FOwnerRecord& Record, UObject* Outer, FName Name)
{
	UClass* const Parent = Image.Resolve<UClass>(Record.Parent);
	UClass* const Class = NewObject<UClass>(Outer, Name, ReflectionFlags);
	const uint32 Inherited = Parent ? Parent->ClassFlags & InheritedClassFlags : 0U;
	const uint32 Own = Translate(Record.Flags, ClassFlagRows) | CLASS_Native;
	Class->ClassFlags = static_cast<EClassFlags>(Own | Inherited);
	Class->SetSuperStruct(Parent ? Parent : UObject::StaticClass());
	return Class;
}

static UScriptStruct* MakeStruct(FLoadedImage& Image, const FOwnerRecord& Record, UObject* Outer, FName Name)
{
	UScriptStruct* const Struct = NewObject<UScriptStruct>(Outer, Name, ReflectionFlags);
	Struct->SetSuperStruct(Image.Resolve<UScriptStruct>(Record.Parent));
	Struct->StructFlags = Record.Flags & Owner_Atomic ? STRUCT_Atomic : STRUCT_NoFlags;
	return Struct;
}

static UEnum::ECppForm ToCppForm(EEnumForm Form)
{
	switch (Form)
	{
	case EEnumForm::Regular:
		return UEnum::ECppForm::Regular;
	case EEnumForm::Namespaced:
		return UEnum::ECppForm::Namespaced;
	case EEnumForm::Class:
		return UEnum::ECppForm::EnumClass;
	}
	return UEnum::ECppForm::Regular;
}

/** What all enumerators of an enum without a scope begin with ("ECC_"): shown names go without it. */
static std::string_view CommonPrefix(const FImageView& View, FRange Values)
{
	const std::string_view First = Values.Num ? View.Text(View.Value(Values.First).Name) : std::string_view();
	const std::size_t Underscore = First.find('_');
	if (Underscore == std::string_view::npos)
	{
		return {};
	}
	const std::string_view Prefix = First.substr(0, Underscore + 1);
	for (uint32 Index = 0; Index < Values.Num; ++Index)
	{
		const FValueRecord& Value = View.Value(Values.First + Index);
		if (!Value.bHidden && !View.Text(Value.Name).starts_with(Prefix))
		{
			return {};
		}
	}
	return Prefix;
}

static UEnum* MakeEnum(FLoadedImage& Image, const FOwnerRecord& Record, UObject* Outer, FName Name)
{
	const FImageView& View = Image.GetView();
	UEnum* const Enum = NewObject<UEnum>(Outer, Name, ReflectionFlags);
	const FString EnumName = Name.ToString();
	const bool bScoped = Record.EnumForm != EEnumForm::Regular;
	const std::string_view Prefix = bScoped ? std::string_view() : CommonPrefix(View, Record.Values);
	const FString Scope = bScoped ? EnumName + TEXT("::") : FString();
	TArray<UEnum::FEntry> Entries;
	int64 Highest = -1;
	bool bHasMax = false;
	for (uint32 Index = 0; Index < Record.Values.Num; ++Index)
	{
		const FValueRecord& Value = View.Value(Record.Values.First + Index);
		const FString ValueName = Image.Text(Value.Name);
		UEnum::FEntry& Entry = Entries.AddDefaulted_GetRef();
		Entry.Name = FName(Scope + ValueName);
		Entry.Value = Value.Value;
		Entry.DisplayName = Image.Text(Value.Display);
		Entry.bHidden = Value.bHidden != 0;
		if (Entry.DisplayName.IsEmpty() && !Prefix.empty())
		{
			Entry.DisplayName = FName::NameToDisplayString(
				ValueName.RightChop(static_cast<int32>(Prefix.size())), false);
		}
		Highest = FMath::Max(Highest, Entry.Value);
		bHasMax = ValueName.EndsWith(TEXT("_MAX"), ESearchCase::CaseSensitive)
			|| ValueName.Equals(TEXT("MAX"), ESearchCase::CaseSensitive);
	}
	if (!bHasMax)
	{
		const FString Stem = bScoped ? EnumName
			: Prefix.empty()		 ? EnumName
									 : FromUtf8(Prefix.substr(0, Prefix.size() - 1));
		UEnum::FEntry& Max = Entries.AddDefaulted_GetRef();
		Max.Name = FName(Scope + Stem + TEXT("_MAX"));
		Max.Value = Highest + 1;
		Max.bHidden = true;
	}
	Enum->CppType = Record.EnumForm == EEnumForm::Namespaced ? EnumName + TEXT("::Type") : EnumName;
	Enum->SetEnums(MoveTemp(Entries), ToCppForm(Record.EnumForm));
	if (Record.Flags & Owner_BlueprintType)
	{
		Enum->SetMetaData(FMetaKeys::Get().BlueprintType, True());
	}
	if (Record.Flags & Owner_Bitflags)
	{
		Enum->SetMetaData(FMetaKeys::Get().Bitflags, FString());
	}
	return Enum;
}

static UDelegateFunction* MakeSignature(const FOwnerRecord& Record, UObject* Outer, FName Name)
{
	UDelegateFunction* const Signature = NewObject<UDelegateFunction>(Outer, Name, ReflectionFlags);
	const uint32 Multicast = Record.Flags & Owner_Multicast ? static_cast<uint32>(FUNC_MulticastDelegate) : 0U;
	Signature->FunctionFlags = static_cast<EFunctionFlags>(FUNC_Public | FUNC_Delegate | Multicast);
	Signature->NumParms = static_cast<int32>(Record.Properties.Num);
	return Signature;
}

static void SetIfGiven(FLoadedImage& Image, UField& Field, FName Key, FTextOffset Text)
{
	if (Text != 0)
	{
		Field.SetMetaData(Key, Image.Text(Text));
	}
}

static void SetMeta(FLoadedImage& Image, UField& Field, FRange Meta)
{
	for (uint32 Index = 0; Index < Meta.Num; ++Index)
	{
		const FMetaRecord& Entry = Image.GetView().Meta(Meta.First + Index);
		Field.SetMetaData(Image.Name(Entry.Key), Image.Text(Entry.Value));
	}
}

/** Each class states both answers itself, since the engine's rules look upwards for the first one stated. */
static void DescribeClass(FLoadedImage& Image, const FOwnerRecord& Record, UClass& Class)
{
	const FMetaKeys& Keys = FMetaKeys::Get();
	Class.SetMetaData(Record.Flags & Owner_BlueprintType ? Keys.BlueprintType : Keys.NotBlueprintType, True());
	Class.SetMetaData(Keys.IsBlueprintBase, Record.Flags & Owner_Blueprintable ? True() : FString(TEXT("false")));
	if (Record.Flags & Owner_Spawnable)
	{
		Class.SetMetaData(Keys.BlueprintSpawnableComponent, FString());
	}
	SetIfGiven(Image, Class, Keys.IncludePath, Record.Header);
	SetIfGiven(Image, Class, Keys.DisplayName, Record.Display);
	SetMeta(Image, Class, Record.Meta);
	for (uint32 Index = 0; Index < Record.Interfaces.Num; ++Index)
	{
		UClass* const Interface = Image.Resolve<UClass>(Image.GetView().Interface(Record.Interfaces.First + Index));
		if (Interface && !Class.ImplementsInterface(Interface))
		{
			Class.Interfaces.Add({Interface, false});
		}
	}
	for (uint32 Index = 0; Index < Record.Nested.Num; ++Index)
	{
		Image.GetOwnerObject(Image.GetView().Nested(Record.Nested.First + Index));
	}
}

static void DescribeStruct(FLoadedImage& Image, const FOwnerRecord& Record, UScriptStruct& Struct)
{
	const FMetaKeys& Keys = FMetaKeys::Get();
	if (Record.Flags & Owner_BlueprintType)
	{
		Struct.SetMetaData(Keys.BlueprintType, True());
	}
	SetIfGiven(Image, Struct, Keys.HasNativeMake, Record.NativeMake);
	SetIfGiven(Image, Struct, Keys.HasNativeBreak, Record.NativeBreak);
	SetIfGiven(Image, Struct, Keys.IncludePath, Record.Header);
	SetMeta(Image, Struct, Record.Meta);
}

static void AddProperties(FLoadedImage& Image, FRange Properties, UStruct& Struct, bool bParameters)
{
	UScriptStruct* const ScriptStruct = Cast<UScriptStruct>(&Struct);
	const bool bMemoryIsNative = ScriptStruct && ScriptStruct->GetOps();
	for (uint32 Index = 0; Index < Properties.Num; ++Index)
	{
		const FPropertyRecord& Record = Image.GetView().Property(Properties.First + Index);
		const FName Name = Image.Name(Record.Name);
		if (FProperty* const Native = Struct.FindOwnProperty(Name))
		{
			DescribeNativeProperty(Image, Record, *Native);
			continue;
		}
		FProperty* const Property = bMemoryIsNative ? nullptr : MakeProperty(Image, Record, Struct, bParameters);
		if (!Property)
		{
			continue;
		}
		Struct.AddProperty(Property);
		if (ScriptStruct && Record.Default != 0)
		{
			ScriptStruct->MemberDefaults.Add(Name, Image.Text(Record.Default));
		}
	}
}

static void AddFunctions(FLoadedImage& Image, FRange Functions, UClass& Class)
{
	for (uint32 Index = 0; Index < Functions.Num; ++Index)
	{
		const uint32 Row = Functions.First + Index;
		const FFunctionRecord& Record = Image.GetView().Function(Row);
		const FName Name = Image.Name(Record.Name);
		if (FObjectTable::Get().Find(&Class, Name))
		{
			continue;
		}
		UFunction* const Function = NewObject<UFunction>(&Class, Name, ReflectionFlags);
		Function->FunctionFlags = ToFunctionFlags(Image.GetView(), Record);
		Function->NumParms = static_cast<int32>(Record.Params.Num);
		Function->SetMemberFiller(&FillFromFunction, FDataIndex(Image.GetId(), Row).GetPacked());
		Class.AddFunction(Function);
	}
}

static void DescribeFunction(FLoadedImage& Image, const FFunctionRecord& Record, UStruct& Function)
{
	const FMetaKeys& Keys = FMetaKeys::Get();
	SetIfGiven(Image, Function, Keys.DisplayName, Record.Display);
	SetIfGiven(Image, Function, Keys.Category, Record.Category);
	SetIfGiven(Image, Function, Keys.CompactNodeTitle, Record.Compact);
	SetIfGiven(Image, Function, Keys.Keywords, Record.Keywords);
	SetIfGiven(Image, Function, Keys.WorldContext, Record.WorldContext);
	const auto SetFlag = [&](EFunctionFlag Flag, FName Key, const FString& Value)
	{
		if (Record.Flags & Flag)
		{
			Function.SetMetaData(Key, Value);
		}
	};
	SetFlag(Function_Internal, Keys.BlueprintInternalUseOnly, True());
	SetFlag(Function_Protected, Keys.BlueprintProtected, True());
	SetFlag(Function_Deprecated, Keys.DeprecatedFunction, FString());
	SetFlag(Function_Latent, Keys.Latent, FString());
	SetMeta(Image, Function, Record.Meta);
	for (uint32 Index = 0; Index < Record.Params.Num; ++Index)
	{
		const FPropertyRecord& Param = Image.GetView().Property(Record.Params.First + Index);
		if (Param.Default != 0)
		{
			Function.SetMetaData(FName(TEXT("CPP_Default_") + Image.Text(Param.Name)), Image.Text(Param.Default));
		}
	}
}
} // namespace CatalogueMaterialise

UObject* MakeOwner(FLoadedImage& Image, uint32 Owner, UObject* Outer, FName Name)
{
	using namespace CatalogueMaterialise;
	const FOwnerRecord& Record = Image.GetView().Owner(Owner);
	UStruct* Struct = nullptr;
	switch (Record.Kind)
	{
	case EOwnerKind::Class:
		Struct = MakeClass(Image, Record, Outer, Name);
		break;
	case EOwnerKind::Struct:
		Struct = MakeStruct(Image, Record, Outer, Name);
		break;
	case EOwnerKind::Delegate:
		Struct = MakeSignature(Record, Outer, Name);
		break;
	case EOwnerKind::Enum:
		return MakeEnum(Image, Record, Outer, Name);
	}
	Struct->SetMemberFiller(&FillFromOwner, FDataIndex(Image.GetId(), Owner).GetPacked());
	return Struct;
}

void FillStruct(FLoadedImage& Image, const FOwnerRecord& Record, UStruct& Struct)
{
	using namespace CatalogueMaterialise;
	++NumFilledStructs;
	if (UClass* const Class = Cast<UClass>(&Struct))
	{
		DescribeClass(Image, Record, *Class);
		AddProperties(Image, Record.Properties, Struct, false);
		AddFunctions(Image, Record.Functions, *Class);
		return;
	}
	UScriptStruct* const ScriptStruct = Cast<UScriptStruct>(&Struct);
	if (!ScriptStruct)
	{
		AddProperties(Image, Record.Properties, Struct, true);
		return;
	}
	DescribeStruct(Image, Record, *ScriptStruct);
	AddProperties(Image, Record.Properties, Struct, false);
}

void FillFromOwner(UStruct* Struct, uint32 DataIndex)
{
	const FDataIndex Index(DataIndex);
	if (FLoadedImage* const Image = FindImage(Index.GetImageId()))
	{
		FillStruct(*Image, Image->GetView().Owner(Index.GetRow()), *Struct);
	}
}

void FillFromFunction(UStruct* Struct, uint32 DataIndex)
{
	const FDataIndex Index(DataIndex);
	if (FLoadedImage* const Image = FindImage(Index.GetImageId()))
	{
		const FFunctionRecord& Record = Image->GetView().Function(Index.GetRow());
		CatalogueMaterialise::DescribeFunction(*Image, Record, *Struct);
		CatalogueMaterialise::AddProperties(*Image, Record.Params, *Struct, true);
	}
}
} // namespace Catalogue
