#pragma once

#include "CoreMinimal.h"
#include "GraphBuilder.h"
#include "UObject/UnrealType.h"

#include <string>
#include <vector>

/** What a Blueprint's class declares itself, a line for each member in their order: "Health: double edit",
 * "OpenBy(Degrees: double, out ReturnValue: bool)". */
namespace ClassMembers
{
inline std::string TypeOf(const FProperty& Property)
{
	FString Extended;
	const FString Type = Property.GetCPPType(&Extended);
	return ToStd(Type + Extended);
}

inline std::string Describe(const FProperty& Property)
{
	const std::pair<uint64, const char*> Words[] = {{CPF_DisableEditOnInstance, " class-only"},
		{CPF_BlueprintReadOnly, " read-only"}, {CPF_SaveGame, " saved"}, {CPF_Net, " replicated"},
		{CPF_ExposeOnSpawn, " on-spawn"}, {CPF_BlueprintAssignable, " assignable"}};
	std::string Text = ToStd(Property.GetName()) + ": " + TypeOf(Property);
	for (const auto& [Flag, Word] : Words)
	{
		Text += Property.HasAnyPropertyFlags(Flag) ? Word : "";
	}
	return Text;
}

inline std::string Describe(const UFunction& Function)
{
	const std::pair<uint32, const char*> Words[] = {{FUNC_BlueprintCallable, " callable"},
		{FUNC_BlueprintPure, " pure"}, {FUNC_Const, " const"}, {FUNC_Public, " public"}, {FUNC_Protected, " protected"},
		{FUNC_Private, " private"}, {FUNC_Static, " static"}, {FUNC_Delegate, " delegate"}, {FUNC_Event, " event"},
		{FUNC_HasOutParms, " outs"}, {FUNC_NetServer, " server"}};
	std::string Parameters;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bLocal = !It->HasAnyPropertyFlags(CPF_Parm);
		Parameters += Parameters.empty() ? "" : ", ";
		Parameters += bLocal						  ? "local "
			: It->HasAnyPropertyFlags(CPF_ReturnParm) ? "return "
			: It->HasAnyPropertyFlags(CPF_OutParm)	  ? "out "
													  : "";
		Parameters += ToStd(It->GetName()) + ": " + TypeOf(**It);
	}
	std::string Text = ToStd(Function.GetName()) + "(" + Parameters + ")";
	for (const auto& [Flag, Word] : Words)
	{
		Text += Function.HasAnyFunctionFlags(static_cast<EFunctionFlags>(Flag)) ? Word : "";
	}
	return Text;
}

inline std::vector<std::string> Describe(const UClass& Class)
{
	std::vector<std::string> Lines;
	for (TFieldIterator<FProperty> It(&Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Lines.push_back(Describe(**It));
	}
	for (TFieldIterator<UFunction> It(&Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Lines.push_back(Describe(**It));
	}
	return Lines;
}
} // namespace ClassMembers
