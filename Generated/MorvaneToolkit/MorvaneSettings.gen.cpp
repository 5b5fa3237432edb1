#include "MorvaneSettings.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UMorvaneSettings, "/Script/MorvaneToolkit", CLASS_None)

void UMorvaneSettings::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bFocusOnModifiedNode"), &UMorvaneSettings::bFocusOnModifiedNode, CPF_Edit | CPF_Config);
}
