#include "WidgetBlueprintSetup.h"

#include "Blueprint/WidgetTree.h"
#include "Kismet2/BlueprintKinds.h"
#include "WidgetBlueprint.h"

namespace WidgetBlueprintSetup
{
/** The tree starts empty: whoever fills it chooses the root. */
void Finish(UBlueprint& Blueprint)
{
	UWidgetBlueprint& Widget = static_cast<UWidgetBlueprint&>(Blueprint);
	Widget.WidgetTree = NewObject<UWidgetTree>(&Widget, TEXT("WidgetTree"), RF_Transactional);
}
} // namespace WidgetBlueprintSetup

void RegisterWidgetBlueprintKind()
{
	static bool bDone = false;
	if (bDone)
	{
		return;
	}
	bDone = true;
	BlueprintKinds::RegisterBlueprintClass(TEXT("/Script/UMG.UserWidget"), UWidgetBlueprint::StaticClass());
	BlueprintKinds::RegisterFinisher(UWidgetBlueprint::StaticClass(), &WidgetBlueprintSetup::Finish);
}
