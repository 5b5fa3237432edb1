#include "Compiler/MemberDeclarations.h"

#include "Compiler/InterfaceFunctions.h"
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
	FCheck(const UBlueprint& InBlueprint, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Class(*InBlueprint.GeneratedClass.Get())
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
			for (TFieldIterator<UFunction> It(Interface.Interface.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
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
	FCompilerResultsLog& Log;
};
} // namespace

void Check(const UBlueprint& Blueprint, FCompilerResultsLog& Log)
{
	FCheck(Blueprint, Log).Run();
}

bool IsDefaultValid(const FBPVariableDescription& Variable, const FProperty& Property)
{
	if (Variable.DefaultValue.IsEmpty())
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
