#include "Compiler/UnresolvedUse.h"

#include "EdGraph/EdGraphNode.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Misc/PackageName.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "UObject/Package.h"

#include <filesystem>

namespace UnresolvedUse
{
static bool HoldsEngineAsset(const FString& ContentPath)
{
	namespace fs = std::filesystem;
	std::error_code Error;
	fs::recursive_directory_iterator It(ToUtf8(ContentPath), fs::directory_options::skip_permission_denied, Error);
	for (; !Error && It != fs::recursive_directory_iterator(); It.increment(Error))
	{
		if (FPackageText::IsBinaryFile(FromUtf8(It->path().filename().string())))
		{
			return true;
		}
	}
	return false;
}

/** Whether content of the root is there, all of it this program's own. */
static bool IsWhole(const FString& Root)
{
	return FPackageName::MountPointExists(Root) && !HoldsEngineAsset(FPackageName::GetContentPathForRoot(Root));
}
} // namespace UnresolvedUse

bool FUnresolvedUse::IsExcused(const UObject* Object)
{
	if (!FMissingObjects::IsMissing(Object))
	{
		return false;
	}
	const FString Package = Object->GetOutermost()->GetName();
	if (FPackageName::IsScriptPackage(Package))
	{
		return true;
	}
	const FString Root = FPackageName::GetPackageMountPoint(Package, false).ToString();
	if (!WholeRoots.Contains(Root))
	{
		WholeRoots.Add(Root, UnresolvedUse::IsWhole(Root));
	}
	return !WholeRoots.FindRef(Root);
}

bool FUnresolvedUse::Note(const UObject* Object, const UEdGraphNode* Node)
{
	const bool bExcused = IsExcused(Object);
	if (bExcused)
	{
		Count(Types, Object->GetPathName(), Node);
	}
	return bExcused;
}

void FUnresolvedUse::Count(TMap<FString, FUses>& Uses, const FString& Path, const UEdGraphNode* Node)
{
	FUses& Row = Uses.FindOrAdd(Path);
	++Row.Num;
	Row.FirstNode = Row.FirstNode ? Row.FirstNode : Node;
}

void FUnresolvedUse::Tell(FCompilerResultsLog& Log) const
{
	for (const TPair<FString, FUses>& Type : Types)
	{
		const FString Places = Type.Value.Num == 1 ? FString(TEXT("one place"))
												   : FString::Printf(TEXT("%d places"), Type.Value.Num);
		const FString Text = FString::Printf(
			TEXT("'%s' is unresolved: nothing here says what it is, so what uses it is not checked (%s"), *Type.Key,
			*Places);
		if (Type.Value.FirstNode)
		{
			Log.Warning(*(Text + TEXT(", of nodes the first is @@)")), Type.Value.FirstNode);
		}
		else
		{
			Log.Warning(*(Text + TEXT(")")));
		}
	}
	for (const TPair<FString, FUses>& Class : NodeClasses)
	{
		Log.Warning(*FString::Printf(TEXT("The node class '%s' is unresolved: @@ is kept as it is and not checked, of "
										  "%d in all"),
						*Class.Key, Class.Value.Num),
			Class.Value.FirstNode);
	}
}
