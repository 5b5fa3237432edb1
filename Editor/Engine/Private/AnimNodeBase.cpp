#include "Animation/AnimNodeBase.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_STRUCT(FPoseLink, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FComponentSpacePoseLink, "/Script/Engine")

void FPoseLink::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("LinkID"), &FPoseLink::LinkID);
	Struct.Property(TEXT("SourceLinkID"), &FPoseLink::SourceLinkID);
}

void FComponentSpacePoseLink::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("LinkID"), &FComponentSpacePoseLink::LinkID);
	Struct.Property(TEXT("SourceLinkID"), &FComponentSpacePoseLink::SourceLinkID);
}
