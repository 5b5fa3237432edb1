#include "EnumPins.h"

#include "BlueprintActionDatabaseRegistrar.h"

namespace EnumPins
{
TArray<int32> VisibleEntries(const UEnum& Enum)
{
	static const TCHAR* const HiddenKeys[] = {TEXT("Hidden"), TEXT("Spacer")};
	TArray<int32> Visible;
	const int32 Count = Enum.NumEnums() - (Enum.ContainsExistingMax() ? 1 : 0);
	for (int32 Index = 0; Index < Count; ++Index)
	{
		if (!Enum.HasMetaData(HiddenKeys[0], Index) && !Enum.HasMetaData(HiddenKeys[1], Index))
		{
			Visible.Add(Index);
		}
	}
	return Visible;
}

void AddActionForEachEnum(
	FBlueprintActionDatabaseRegistrar& ActionRegistrar, UClass* NodeClass, void (*Bind)(UEdGraphNode*, UEnum*))
{
	ActionRegistrar.RegisterEnumActions(
		[NodeClass, Bind](UEnum& Enum)
		{
			const TWeakObjectPtr<UEnum> Weak(&Enum);
			return UBlueprintNodeSpawner::Create(NodeClass, nullptr,
				[Weak, Bind](UEdGraphNode* Node, bool)
				{
					if (UEnum* const Bound = Weak.Get())
					{
						Bind(Node, Bound);
					}
				});
		});
}
} // namespace EnumPins
