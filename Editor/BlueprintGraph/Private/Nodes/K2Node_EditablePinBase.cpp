#include "K2Node_EditablePinBase.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Tunnel.h"
#include "Misc/FeedbackContext.h"
#include "Misc/Parse.h"
#include "Misc/StringOutputDevice.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_EditablePinBase, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_STRUCT(FUserPinInfo, "/Script/BlueprintGraph")
IMPLEMENT_EDITOR_STRUCT(FKismetUserDeclaredFunctionMetadata, "/Script/BlueprintGraph")

void UK2Node_EditablePinBase::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bIsEditable"), &UK2Node_EditablePinBase::bIsEditable);
}

void FUserPinInfo::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("PinName"), &FUserPinInfo::PinName);
	Struct.Property(TEXT("PinType"), &FUserPinInfo::PinType);
	Struct.Property(TEXT("DesiredPinDirection"), &FUserPinInfo::DesiredPinDirection);
	Struct.Property(TEXT("PinDefaultValue"), &FUserPinInfo::PinDefaultValue);
}

void FKismetUserDeclaredFunctionMetadata::DescribeStruct(FStructDescriber& Struct)
{
	using FMetaData = FKismetUserDeclaredFunctionMetadata;
	Struct.Property(TEXT("ToolTip"), &FMetaData::ToolTip);
	Struct.Property(TEXT("Category"), &FMetaData::Category);
	Struct.Property(TEXT("Keywords"), &FMetaData::Keywords);
	Struct.Property(TEXT("CompactNodeTitle"), &FMetaData::CompactNodeTitle);
	Struct.Property(TEXT("InstanceTitleColor"), &FMetaData::InstanceTitleColor);
	Struct.Property(TEXT("DeprecationMessage"), &FMetaData::DeprecationMessage);
	Struct.Property(TEXT("bIsDeprecated"), &FMetaData::bIsDeprecated);
	Struct.Property(TEXT("bCallInEditor"), &FMetaData::bCallInEditor);
	Struct.Property(TEXT("bThreadSafe"), &FMetaData::bThreadSafe);
	Struct.Property(TEXT("bIsUnsafeDuringActorConstruction"), &FMetaData::bIsUnsafeDuringActorConstruction);
	Struct.Property(TEXT("MetaDataMap"), &FMetaData::MetaDataMap);
}

UEdGraphPin* UK2Node_EditablePinBase::CreateUserDefinedPin(
	FName InPinName, const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, bool bUseUniqueName)
{
	const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
	Info->PinName = bUseUniqueName ? CreateUniquePinName(InPinName) : InPinName;
	Info->PinType = InPinType;
	Info->DesiredPinDirection = InDesiredDirection;
	UEdGraphPin* const Pin = CreatePinFromUserDefinition(Info);
	if (Pin)
	{
		Modify();
		UserDefinedPins.Add(Info);
	}
	return Pin;
}

UEdGraphPin* UK2Node_EditablePinBase::CreatePinFromUserDefinition(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	UEdGraphPin* const Pin = CreatePinFromUserDefinitionInternal(NewPinInfo);
	// A value that comes in from outside starts as nothing unless its author said so.
	if (Pin && (Pin->Direction == EGPD_Input || !NewPinInfo->PinDefaultValue.IsEmpty()))
	{
		GetK2Schema()->SetPinDefaultValueAtConstruction(Pin, NewPinInfo->PinDefaultValue);
	}
	return Pin;
}

UEdGraphPin* UK2Node_EditablePinBase::CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	return CreatePin(NewPinInfo->DesiredPinDirection, NewPinInfo->PinType, NewPinInfo->PinName);
}

void UK2Node_EditablePinBase::RemoveUserDefinedPinByName(FName PinName)
{
	Modify();
	if (UEdGraphPin* const Pin = FindPin(PinName))
	{
		RemovePin(Pin);
	}
	UserDefinedPins.RemoveAll([PinName](const TSharedPtr<FUserPinInfo>& Info) { return Info->PinName == PinName; });
}

bool UK2Node_EditablePinBase::UserDefinedPinExists(FName PinName) const
{
	return UserDefinedPins.ContainsByPredicate(
		[PinName](const TSharedPtr<FUserPinInfo>& Info) { return Info->PinName == PinName; });
}

bool UK2Node_EditablePinBase::ModifyUserDefinedPinDefaultValue(
	TSharedPtr<FUserPinInfo> PinInfo, const FString& NewDefaultValue)
{
	PinInfo->PinDefaultValue = NewDefaultValue;
	if (UEdGraphPin* const Pin = FindPin(PinInfo->PinName))
	{
		GetK2Schema()->SetPinDefaultValueAtConstruction(Pin, NewDefaultValue);
	}
	return true;
}

FKismetUserDeclaredFunctionMetadata* UK2Node_EditablePinBase::GetGraphFunctionMetaData(const UEdGraph* InGraph)
{
	if (!InGraph)
	{
		return nullptr;
	}
	for (UEdGraphNode* const Node : InGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			return &Entry->MetaData;
		}
		if (UK2Node_Tunnel* const Tunnel = ExactCast<UK2Node_Tunnel>(Node); Tunnel && Tunnel->bCanHaveOutputs)
		{
			return &Tunnel->MetaData;
		}
	}
	return nullptr;
}

bool UK2Node_EditablePinBase::CreatePinsForFunctionEntryExit(const UFunction* Function, bool bForFunctionEntry)
{
	bool bAllPinsGood = true;
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	for (TFieldIterator<FProperty> It(Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (!It->HasAnyPropertyFlags(CPF_Parm))
		{
			continue;
		}
		const bool bIsFunctionInput = !It->HasAnyPropertyFlags(CPF_OutParm)
			|| It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (bIsFunctionInput != bForFunctionEntry)
		{
			continue;
		}
		UEdGraphPin* const Pin = CreatePinFromProperty(
			*It, bForFunctionEntry ? EGPD_Output : EGPD_Input, It->GetFName());
		bAllPinsGood &= Pin != nullptr;
		if (Pin)
		{
			Schema->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
		}
	}
	return bAllPinsGood;
}

void UK2Node_EditablePinBase::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		CreatePinFromUserDefinition(Info);
	}
}

void UK2Node_EditablePinBase::PinDefaultValueChanged(UEdGraphPin* Pin)
{
	Super::PinDefaultValueChanged(Pin);
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		if (Info->PinName == Pin->PinName)
		{
			Info->PinDefaultValue = Pin->GetDefaultAsString();
		}
	}
}

namespace UserPinText
{
static FString Export(const FUserPinInfo& Info, UObject* Owner)
{
	static const FUserPinInfo Empty;
	FString Text;
	FUserPinInfo::StaticStruct()->ExportText(Text, &Info, &Empty, Owner, PPF_Delimited, nullptr);
	return Text;
}
} // namespace UserPinText

void UK2Node_EditablePinBase::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	Super::ExportCustomProperties(Out, Indent);
	FString Prefix;
	for (uint32 Blank = 0; Blank < Indent; ++Blank)
	{
		Prefix.AppendChar(TEXT(' '));
	}
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		const FString Text = UserPinText::Export(*Info, this);
		const bool bKept = !Info->KeptText.IsEmpty() && Info->TextAfter.Equals(Text);
		Out.Log(Prefix + TEXT("CustomProperties UserDefinedPin ") + (bKept ? Info->KeptText : Text) + TEXT("\n"));
	}
}

void UK2Node_EditablePinBase::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	const TCHAR* Cursor = SourceText;
	if (!FParse::Command(&Cursor, TEXT("UserDefinedPin")))
	{
		Super::ImportCustomProperties(SourceText, Warn);
		return;
	}
	while (*Cursor == TEXT(' '))
	{
		++Cursor;
	}
	const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
	static const FString StructName(TEXT("UserPinInfo"));
	FStringOutputDevice Complaints;
	if (!FUserPinInfo::StaticStruct()->ImportText(Cursor, Info.Get(), this, PPF_Delimited, &Complaints, StructName))
	{
		UEdGraphNode::ImportCustomProperties(SourceText, Warn);
	}
	else
	{
		UserDefinedPins.Add(Info);
		if (!Complaints.IsEmpty())
		{
			Info->KeptText = Cursor;
			Info->TextAfter = UserPinText::Export(*Info, this);
		}
	}
	if (Warn && !Complaints.IsEmpty())
	{
		Warn->Log(Complaints);
	}
}
