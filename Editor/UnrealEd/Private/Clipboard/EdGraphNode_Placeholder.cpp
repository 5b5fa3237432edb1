#include "Standalone/EdGraphNode_Placeholder.h"

#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectText.h"

IMPLEMENT_EDITOR_CLASS(UEdGraphNode_Placeholder, "/Script/UnrealEd", CLASS_None)

void UEdGraphNode_Placeholder::DescribeClass(FClassDescriber&) {}

FString UEdGraphNode_Placeholder::GetOriginalClassPath() const
{
	const FKeptObjectText* const Kept = FKeptObjectText::Find(this);
	return Kept ? FromUtf8(Kept->ClassPath) : FString();
}

FText UEdGraphNode_Placeholder::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FString Path = GetOriginalClassPath();
	int32 Dot = INDEX_NONE;
	const bool bShort = TitleType != ENodeTitleType::FullTitle && Path.FindLastChar(TEXT('.'), Dot);
	const FString Name = bShort ? Path.Mid(Dot + 1) : Path;
	return FText::FromString(FString::Printf(TEXT("Unknown node: %s"), *Name));
}

FText UEdGraphNode_Placeholder::GetTooltipText() const
{
	return FText::FromString(FString::Printf(
		TEXT("The class '%s' is not known here. The node is kept as it was read and written back unchanged."),
		*GetOriginalClassPath()));
}

void UEdGraphNode_Placeholder::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	MessageLog.Error(*FString::Printf(TEXT("The class '%s' of node @@ is not known, so the node cannot be compiled"),
						 *GetOriginalClassPath()),
		this);
}
