#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "Utils/Read/ReadItems.h"

void ReadSections::AddTimelines(FReadSection& Section)
{
	for (const UTimelineTemplate* const Timeline : Section.Blueprint.Timelines)
	{
		if (!Timeline)
		{
			continue;
		}
		const FString Name = Timeline->GetName().Replace(TEXT("_Template"), TEXT(""), ESearchCase::IgnoreCase);
		if (!Section.Stands(Name))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Name);
		if (Section.bFull)
		{
			Entry->SetNumberField(TEXT("length"), static_cast<double>(Timeline->TimelineLength));
			Entry->SetBoolField(TEXT("auto_play"), Timeline->bAutoPlay);
			Entry->SetBoolField(TEXT("loop"), Timeline->bLoop);
		}
	}
}
