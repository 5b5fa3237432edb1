#include "Compiler/MemberDeclarations.h"

#include "Compiler/InterfaceFunctions.h"
#include "Compiler/UnresolvedUse.h"
#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UnrealType.h"

namespace MemberDeclarations
{
namespace
{
FString TypeText(const FBPVariableDescription& Variable)
{
	return UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString();
}

class FCheck
{
public:
	FCheck(const UBlueprint& InBlueprint, FUnresolvedUse& InUnresolved, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Class(*InBlueprint.GeneratedClass.Get())
		, Unresolved(InUnresolved)
		, Log(InLog)
	{
	}

	void Run()
	{
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			CheckVariable(Variable);
		}
		CheckComponents();
		CheckInterfaces();
	}

private:
	void CheckVariable(const FBPVariableDescription& Variable)
	{
		const FString Name = Variable.VarName.ToString();
		const FProperty* const Property = Class.FindOwnProperty(Variable.VarName);
		if (NoteUnresolved(Variable.VarType))
		{
			return;
		}
		if (!Property || NamesMissing(Variable.VarType))
		{
			Log.Error(*FString::Printf(TEXT("The variable '%s' declared in '%s' has an invalid type: %s"), *Name,
				*Blueprint.GetName(), *TypeText(Variable)));
			return;
		}
		const FMulticastDelegateProperty* const Dispatcher = CastField<FMulticastDelegateProperty>(Property);
		if (Dispatcher && !Dispatcher->SignatureFunction)
		{
			Log.Error(*FString::Printf(TEXT("The event dispatcher '%s' has no signature"), *Name));
		}
		if (!IsDefaultValid(Variable, *Property))
		{
			Log.Warning(*FString::Printf(TEXT("The default value '%s' of the variable '%s' is not a valid %s"),
				*Variable.DefaultValue, *Name, *TypeText(Variable)));
		}
		CheckReplication(Variable);
		CheckExposure(Variable, *Property);
	}

	bool NoteUnresolved(const FEdGraphPinType& Type)
	{
		const bool bKey = Unresolved.Note(Type.PinSubCategoryObject.Get());
		return Unresolved.Note(Type.PinValueType.TerminalSubCategoryObject.Get()) || bKey;
	}

	static bool NamesMissing(const FEdGraphPinType& Type)
	{
		return FMissingObjects::IsMissing(Type.PinSubCategoryObject.Get())
			|| FMissingObjects::IsMissing(Type.PinValueType.TerminalSubCategoryObject.Get());
	}

	void CheckReplication(const FBPVariableDescription& Variable)
	{
		if (!(Variable.PropertyFlags & CPF_RepNotify))
		{
			return;
		}
		const FName Notify = Variable.RepNotifyFunc;
		if (Notify.IsNone() || !Class.FindFunctionByName(Notify))
		{
			Log.Warning(*FString::Printf(
				TEXT(
					"The variable '%s' is replicated with a notification, but its notify function '%s' does not exist"),
				*Variable.VarName.ToString(), *Notify.ToString()));
		}
	}

	void CheckExposure(const FBPVariableDescription& Variable, const FProperty& Property)
	{
		if (Property.HasAllPropertyFlags(CPF_ExposeOnSpawn | CPF_DisableEditOnInstance))
		{
			Log.Warning(*FString::Printf(
				TEXT(
					"The variable '%s' is exposed on spawn but not editable on instances; make it instance editable too"),
				*Variable.VarName.ToString()));
		}
	}

	void CheckComponents()
	{
		if (!Blueprint.SimpleConstructionScript)
		{
			return;
		}
		for (const USCS_Node* const Node : Blueprint.SimpleConstructionScript->GetAllNodes())
		{
			const FString Name = Node->GetVariableName().ToString();
			const UClass* const ComponentClass = Node->ComponentClass.Get();
			if (Unresolved.Note(ComponentClass))
			{
				continue;
			}
			if (FMissingObjects::IsMissing(ComponentClass))
			{
				Log.Error(*FString::Printf(
					TEXT("The class of the component '%s' is gone: '%s'"), *Name, *ComponentClass->GetPathName()));
			}
			else if (!ComponentClass)
			{
				Log.Error(*FString::Printf(TEXT("The class of the component '%s' is gone"), *Name));
			}
			else if (ComponentClass->HasAnyClassFlags(CLASS_Abstract))
			{
				Log.Error(
					*FString::Printf(TEXT("The component '%s' is of the abstract class '%s', of which there can be "
										  "no object; choose a class derived from it"),
						*Name, *ComponentClass->GetName()));
			}
		}
	}

	void CheckInterfaces()
	{
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			// Which functions one has that is not here is not known; what a stand-in has is what somebody uses.
			const UClass* const Known = FMissingObjects::IsMissing(Interface.Interface.Get())
				? nullptr
				: Interface.Interface.Get();
			for (TFieldIterator<UFunction> It(Known, EFieldIteratorFlags::IncludeSuper); It; ++It)
			{
				if (InterfaceFunctions::NeedsGraph(**It)
					&& !Class.FindFunctionByName(It->GetFName(), EIncludeSuperFlag::ExcludeSuper))
				{
					Log.Error(*FString::Printf(TEXT("Interface function '%s' of '%s' is not implemented"),
						*It->GetName(), *Interface.Interface.Get()->GetName()));
				}
			}
		}
	}

	const UBlueprint& Blueprint;
	const UClass& Class;
	FUnresolvedUse& Unresolved;
	FCompilerResultsLog& Log;
};
} // namespace

void Check(const UBlueprint& Blueprint, FUnresolvedUse& Unresolved, FCompilerResultsLog& Log)
{
	FCheck(Blueprint, Unresolved, Log).Run();
}

/** Vectors and rotators may be spelled as pins spell them: three numbers in a row. */
static bool IsRowOfNumbers(const FBPVariableDescription& Variable)
{
	const UObject* const Struct = Variable.VarType.PinSubCategoryObject.Get();
	const bool bOfThree = Struct == TBaseStructure<FVector>::Get() || Struct == TBaseStructure<FRotator>::Get();
	TArray<FString> Numbers;
	Variable.DefaultValue.ParseIntoArray(Numbers, TEXT(","));
	return bOfThree && !Variable.VarType.IsContainer() && Numbers.Num() == 3
		&& !Numbers.ContainsByPredicate([](const FString& Number) { return !Number.TrimStartAndEnd().IsNumeric(); });
}

bool IsDefaultValid(const FBPVariableDescription& Variable, const FProperty& Property)
{
	// Of vectors and rotators a default may be spelled as a pin spells it: three numbers in a row.
	if (Variable.DefaultValue.IsEmpty() || IsRowOfNumbers(Variable))
	{
		return true;
	}
	TArray<uint8> Memory;
	Memory.SetNumZeroed(Property.GetElementSize() + Property.GetMinAlignment());
	uint8* Value = Memory.GetData();
	const UPTRINT Alignment = static_cast<UPTRINT>(Property.GetMinAlignment());
	Value += (Alignment - reinterpret_cast<UPTRINT>(Value) % Alignment) % Alignment;
	Property.InitializeValue(Value);
	const TCHAR* const End = Property.ImportText_Direct(*Variable.DefaultValue, Value, nullptr, PPF_None);
	Property.DestroyValue(Value);
	return End != nullptr;
}
} // namespace MemberDeclarations
