#pragma once

#include "Containers/ArrayView.h"
#include "CoreMinimal.h"
#include "ITool.h"

/** What a tool does to its data, as the metadata says it. */
enum class EToolKind : uint8
{
	Read,
	Modify,
	Create,
	Delete,
	Compile,
};

/** One tool of this module. Everything that needs the list of tools walks the table. */
struct FToolRow
{
	const TCHAR* Name;
	EToolKind Kind;
	/** What a read tool reads; null for the other kinds. */
	const TCHAR* SubOperation;
	const TCHAR* Parameters;
	const TCHAR* Description;
	/** Makes the tool object from its parameters, description and metadata texts. */
	TSharedPtr<ITool> (*Make)(const FString&, const FString&, const FString&);
};

namespace ToolTable
{
/** In the order of registration. */
TArrayView<const FToolRow> GetRows();
FString MakeMetadata(const FToolRow& Row);
TSharedPtr<ITool> MakeTool(const FToolRow& Row);
} // namespace ToolTable
