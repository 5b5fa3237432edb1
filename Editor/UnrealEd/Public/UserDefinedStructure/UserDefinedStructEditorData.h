#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "UObject/SoftObjectPath.h"

class UUserDefinedStruct;

/** A member of a struct that was made in the editor. */
struct FStructVariableDescription
{
	EDITOR_STRUCT(FStructVariableDescription)

	bool SetPinType(const FEdGraphPinType& VarType);
	FEdGraphPinType ToPinType() const;

	/** Never changes, so that saved values find their member again; people read FriendlyName. */
	FName VarName;
	FGuid VarGuid;
	FString FriendlyName;
	FString DefaultValue;
	FName Category;
	FName SubCategory;
	TSoftObjectPtr<UObject> SubCategoryObject;
	FEdGraphTerminalType PinValueType;
	EPinContainerType ContainerType = EPinContainerType::None;
	bool bDontEditOnInstance = false;
	bool bEnableSaveGame = false;
	bool bEnableMultiLineText = false;
	bool bEnable3dWidget = false;
	FString CurrentDefaultValue;
	/** The type is gone, so the struct has no such member for now. */
	bool bInvalidMember = false;
	FString ToolTip;
};

/** What the author said of a struct; an object inside the struct. */
class UUserDefinedStructEditorData : public UObject
{
	EDITOR_CLASS(UUserDefinedStructEditorData, UObject)

public:
	void PostLoad() override;
	UUserDefinedStruct* GetOwnerStruct() const;
	/** Gives the struct the members as they are described. Nobody may hold a value of the struct meanwhile. */
	void RecreateMembers();
	/** For names: another number each time. */
	uint32 GenerateUniqueNameIdForMemberVariable() { return UniqueNameId++; }

	TArray<FStructVariableDescription> VariablesDescriptions;
	FString ToolTip;

private:
	uint32 UniqueNameId = 0;
};
