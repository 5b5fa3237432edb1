#include "Utils/Graph/AuthoredValues.h"

#include "EdGraphSchema_K2.h"
#include "GraphBuilder.h"
#include "UObject/Class.h"

#include <gtest/gtest.h>

TEST(AuthoredValues, SignsWithinQuotesPartNothing)
{
	FGraphBuilder Graph;
	UEdGraphPin& Pin = *Graph.AddPin(Graph.Bare(), EGPD_Input, TEXT("Row"));
	Pin.PinType.PinCategory = UEdGraphSchema_K2::PC_Struct;
	Pin.PinType.PinSubCategoryObject = FindObject<UScriptStruct>(nullptr, TEXT("/Script/Engine.DataTableRowHandle"));
	ASSERT_TRUE(Pin.PinType.PinSubCategoryObject.IsValid());
	const struct
	{
		const TCHAR* Authored;
		const char* Taken;
	} Cases[] = {
		{TEXT("{row_name: Door}"), "(RowName=Door)"},
		{TEXT("{row_name: \"Door, open\"}"), "(RowName=\"Door, open\")"},
		{TEXT("{row_name: \"Door) open\"}"), "(RowName=\"Door) open\")"},
		{TEXT("{row_name: \"Door: open\"}"), "(RowName=\"Door: open\")"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ToStd(AuthoredValues::ToPinText(Pin, Case.Authored)), Case.Taken);
	}
}
