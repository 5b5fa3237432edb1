// Which pin types go together as they are, without a node that converts.

#include "EdGraphSchema_K2.h"

#include "Engine/Blueprint.h"
#include "Engine/MemberReference.h"
#include "UObject/UnrealType.h"

namespace PinTypeRules
{
using FSchema = UEdGraphSchema_K2;

/** One value's type, whether it stands alone or inside a container. */
struct FTerminal
{
	FName Category;
	FName SubCategory;
	UObject* Object = nullptr;
	const FSimpleMemberReference* Signature = nullptr;

	bool operator==(const FTerminal& Other) const
	{
		return Category == Other.Category && SubCategory == Other.SubCategory && Object == Other.Object;
	}
};

static FTerminal TerminalOf(const FEdGraphPinType& Type)
{
	return {
		Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(), &Type.PinSubCategoryMemberReference};
}

static FTerminal TerminalOf(const FEdGraphTerminalType& Type)
{
	return {Type.TerminalCategory, Type.TerminalSubCategory, Type.TerminalSubCategoryObject.Get(), nullptr};
}

/** The class that a reference names; self means the class of the graph that asks. */
static const UClass* ClassOf(const FTerminal& Type, const UClass* Context)
{
	return Type.SubCategory == FSchema::PSC_Self ? Context : Cast<UClass>(Type.Object);
}

/** A Blueprint has two classes of which either may be the newer; any of them standing below the base is enough. */
static bool IsChild(const UClass* Class, const UClass* Base)
{
	if (!Class || !Base)
	{
		return false;
	}
	const UClass* const RealBase = Base->GetAuthoritativeClass();
	return Class->IsChildOf(Base) || Class->IsChildOf(RealBase) || Class->GetAuthoritativeClass()->IsChildOf(RealBase);
}

/** Interfaces of the class, and those that its Blueprints were given since the last compile. */
static bool Implements(const UClass* Class, const UClass* Interface)
{
	if (!Class || !Interface)
	{
		return false;
	}
	const UClass* const Wanted = Interface->GetAuthoritativeClass();
	for (const UClass* Step = Class; Step; Step = Step->GetSuperClass())
	{
		const UBlueprint* const Blueprint = Cast<UBlueprint>(Step->ClassGeneratedBy);
		if (!Blueprint)
		{
			break;
		}
		for (const FBPInterfaceDescription& Given : Blueprint->ImplementedInterfaces)
		{
			if (IsChild(Given.Interface.Get(), Wanted))
			{
				return true;
			}
		}
	}
	return Class->ImplementsInterface(Wanted) || Class->GetAuthoritativeClass()->ImplementsInterface(Wanted);
}

static bool IsIndexType(const FTerminal& Type)
{
	return Type.Category == FSchema::PC_Int || Type.Category == FSchema::PC_Boolean
		|| Type.Category == FSchema::PC_Byte;
}

/** A wildcard takes any value; one that stands for an index takes what can be counted. Execution is no value. */
static bool FitsWildcard(const FTerminal& Wildcard, const FTerminal& Other)
{
	if (Other.Category == FSchema::PC_Wildcard)
	{
		return true;
	}
	if (Other.Category == FSchema::PC_Exec)
	{
		return false;
	}
	return Wildcard.SubCategory != FSchema::PSC_Index || IsIndexType(Other);
}

static bool SignaturesFit(const FTerminal& Output, const FTerminal& Input, const UClass* Context)
{
	UClass* const Scope = const_cast<UClass*>(Context);
	const UFunction* const Out = Output.Signature
		? FMemberReference::ResolveSimpleMemberReference(*Output.Signature, Scope)
		: nullptr;
	const UFunction* const In = Input.Signature
		? FMemberReference::ResolveSimpleMemberReference(*Input.Signature, Scope)
		: nullptr;
	// One end without a signature is not bound yet and takes that of the other.
	return !Out || !In || Out == In || Out->IsSignatureCompatibleWith(In);
}

static bool ClassesFit(const UClass* Out, const UClass* In)
{
	// A pin may name an interface where others name a class; what implements it goes there.
	const bool bToInterface = In->HasAnyClassFlags(CLASS_Interface) && !Out->HasAnyClassFlags(CLASS_Interface);
	return bToInterface ? Implements(Out, In) : IsChild(Out, In);
}

static bool ObjectsFit(const FTerminal& Output, const FTerminal& Input, const UClass* Context)
{
	const UClass* const Out = ClassOf(Output, Context);
	const UClass* const In = ClassOf(Input, Context);
	if (Out && In)
	{
		return ClassesFit(Out, In);
	}
	// Self without a class to stand for is some object, and nothing more is known of it.
	const bool bOutputIsOpenSelf = !Out && Output.SubCategory == FSchema::PSC_Self;
	return (bOutputIsOpenSelf && In == UObject::StaticClass())
		|| (!Out && !In && Output.SubCategory == Input.SubCategory);
}

/** A child struct goes where its parent does only if it adds nothing: the value is handed over as it lies in memory. */
static bool StructsFit(const FTerminal& Output, const FTerminal& Input)
{
	const UScriptStruct* const In = Cast<UScriptStruct>(Input.Object);
	const UStruct* Struct = Cast<UScriptStruct>(Output.Object);
	while (Struct && Struct != In && !TFieldIterator<FProperty>(Struct, EFieldIteratorFlags::ExcludeSuper))
	{
		Struct = Struct->GetSuperStruct();
	}
	return Struct == In;
}

static bool SameCategoryFits(const FTerminal& Output, const FTerminal& Input, const UClass* Context)
{
	const FName Category = Output.Category;
	if (Category == FSchema::PC_Byte || Category == FSchema::PC_Enum)
	{
		// Every enum is a byte; a byte is no enum, and no enum is another.
		return !Input.Object || Output.Object == Input.Object;
	}
	if (Category == FSchema::PC_Struct)
	{
		return StructsFit(Output, Input);
	}
	if (Category == FSchema::PC_Object || Category == FSchema::PC_Class || Category == FSchema::PC_SoftObject
		|| Category == FSchema::PC_SoftClass || Category == FSchema::PC_Interface)
	{
		return ObjectsFit(Output, Input, Context);
	}
	if (Category == FSchema::PC_Delegate || Category == FSchema::PC_MCDelegate)
	{
		return SignaturesFit(Output, Input, Context);
	}
	// Reals of both widths go together; the compiler casts between them.
	return true;
}

/** What a map's keys lead to: the very type, as values are written through the map too. Reals of both widths convert.
 */
static bool MapValuesFit(const FTerminal& Output, const FTerminal& Input)
{
	return Output.Category == FSchema::PC_Wildcard || Input.Category == FSchema::PC_Wildcard || Output == Input
		|| (Output.Category == FSchema::PC_Real && Input.Category == FSchema::PC_Real);
}

static bool TerminalFits(const FTerminal& Output, const FTerminal& Input, const UClass* Context)
{
	if (Output.Category == FSchema::PC_Wildcard)
	{
		return FitsWildcard(Output, Input);
	}
	if (Input.Category == FSchema::PC_Wildcard)
	{
		return FitsWildcard(Input, Output);
	}
	if (Output.Category == Input.Category)
	{
		return SameCategoryFits(Output, Input, Context);
	}
	if (Output.Category == FSchema::PC_Object && Input.Category == FSchema::PC_Interface)
	{
		return Implements(ClassOf(Output, Context), ClassOf(Input, Context));
	}
	if (Output.Category == FSchema::PC_Object && Input.Category == FSchema::PC_Class)
	{
		return Output.Object == UClass::StaticClass() && Input.Object == UObject::StaticClass();
	}
	// A class is an object too, but only those who ask for a class as an object get it.
	return Output.Category == FSchema::PC_Class && Input.Category == FSchema::PC_Object
		&& Input.Object == UClass::StaticClass();
}

/** An open wildcard may become a container, unless it stands for an index; what is known to be single or of one kind
 * stays so. */
static bool ContainersFit(const FEdGraphPinType& Output, const FEdGraphPinType& Input)
{
	const bool bMayBecomeContainer = Input.PinCategory == FSchema::PC_Wildcard
		&& Input.PinSubCategory != FSchema::PSC_Index && !Input.IsContainer();
	return Output.ContainerType == Input.ContainerType || bMayBecomeContainer;
}
} // namespace PinTypeRules

bool UEdGraphSchema_K2::ArePinTypesCompatible(
	const FEdGraphPinType& Output, const FEdGraphPinType& Input, const UClass* CallingContext, bool bIgnoreArray) const
{
	using namespace PinTypeRules;
	if (!bIgnoreArray && !ContainersFit(Output, Input))
	{
		return false;
	}
	if (Output.IsMap() && Input.IsMap()
		&& !MapValuesFit(TerminalOf(Output.PinValueType), TerminalOf(Input.PinValueType)))
	{
		return false;
	}
	return TerminalFits(TerminalOf(Output), TerminalOf(Input), CallingContext);
}

bool UEdGraphSchema_K2::ArePinsCompatible(
	const UEdGraphPin* PinA, const UEdGraphPin* PinB, const UClass* CallingContext, bool bIgnoreArray) const
{
	const UEdGraphPin* Input = nullptr;
	const UEdGraphPin* Output = nullptr;
	return CategorizePinsByDirection(PinA, PinB, Input, Output)
		&& ArePinTypesCompatible(Output->PinType, Input->PinType, CallingContext, bIgnoreArray);
}

bool UEdGraphSchema_K2::CategorizePinsByDirection(
	const UEdGraphPin* PinA, const UEdGraphPin* PinB, const UEdGraphPin*& InputPin, const UEdGraphPin*& OutputPin)
{
	return CategorizePinsByDirection<const UEdGraphPin>(PinA, PinB, InputPin, OutputPin);
}
