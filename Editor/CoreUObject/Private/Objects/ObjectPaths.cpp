#include "Objects/ObjectPaths.h"

#include "UObject/Object.h"
#include "UObject/Package.h"
#include "UObject/SoftObjectPath.h"
#include "UObject/TopLevelAssetPath.h"

namespace ObjectPaths
{
static FStringView StripPair(FStringView Text, TCHAR Quote)
{
	const bool bQuoted = Text.Len() >= 2 && Text[0] == Quote && Text[Text.Len() - 1] == Quote;
	return bQuoted ? Text.Mid(1, Text.Len() - 2) : Text;
}

FStringView StripReference(FStringView Text)
{
	Text = StripPair(Text.TrimStartAndEnd(), TEXT('"'));
	int32 Quote = INDEX_NONE;
	if (Text.Len() >= 2 && Text[Text.Len() - 1] == TEXT('\'') && Text.FindChar(TEXT('\''), Quote)
		&& Quote < Text.Len() - 1)
	{
		Text = StripPair(Text.Mid(Quote + 1, Text.Len() - Quote - 2), TEXT('"'));
	}
	return Text;
}

FParts Split(FStringView Path)
{
	for (int32 Index = 0; Index < Path.Len(); ++Index)
	{
		if (Path[Index] == TEXT('.') || Path[Index] == TEXT(':'))
		{
			return {Path.Left(Index), Path.Mid(Index + 1)};
		}
	}
	return {Path, FStringView()};
}
} // namespace ObjectPaths

FTopLevelAssetPath::FTopLevelAssetPath(const UObject* Object)
{
	if (Object && !Object->GetOuter())
	{
		PackageName = Object->GetFName();
	}
	else if (Object && !Object->GetOuter()->GetOuter())
	{
		PackageName = Object->GetOuter()->GetFName();
		AssetName = Object->GetFName();
	}
}

bool FTopLevelAssetPath::TrySetPath(const TCHAR* Path)
{
	Reset();
	const FStringView Bare = ObjectPaths::StripReference(FStringView(Path));
	if (Bare.IsEmpty() || Bare[0] != TEXT('/'))
	{
		return false;
	}
	const ObjectPaths::FParts Parts = ObjectPaths::Split(Bare);
	int32 Delimiter = INDEX_NONE;
	const bool bSubObject = Parts.Object.FindChar(TEXT(':'), Delimiter) || Parts.Object.FindChar(TEXT('.'), Delimiter);
	if (bSubObject || Parts.Package.Len() < 2)
	{
		return false;
	}
	PackageName = FName(Parts.Package);
	AssetName = FName(Parts.Object);
	return true;
}

FString FTopLevelAssetPath::ToString() const
{
	FString Path;
	AppendString(Path);
	return Path;
}

void FTopLevelAssetPath::AppendString(FString& Out) const
{
	if (IsNull())
	{
		return;
	}
	PackageName.AppendString(Out);
	if (!AssetName.IsNone())
	{
		Out.AppendChar(TEXT('.'));
		AssetName.AppendString(Out);
	}
}

FSoftObjectPath::FSoftObjectPath(const UObject* Object)
{
	if (Object)
	{
		SetPath(Object->GetPathName());
	}
}

void FSoftObjectPath::SetPath(const FString& Path)
{
	Reset();
	const FStringView Bare = ObjectPaths::StripReference(Path);
	if (Bare.IsEmpty() || Bare == TEXT("None"))
	{
		return;
	}
	const ObjectPaths::FParts Parts = ObjectPaths::Split(Bare);
	const ObjectPaths::FParts Asset = ObjectPaths::Split(Parts.Object);
	AssetPath = FTopLevelAssetPath(FName(Parts.Package), FName(Asset.Package));
	SubPath = FString(Asset.Object);
}

FString FSoftObjectPath::ToString() const
{
	FString Path;
	AppendString(Path);
	return Path;
}

void FSoftObjectPath::AppendString(FString& Out) const
{
	AssetPath.AppendString(Out);
	if (!SubPath.IsEmpty())
	{
		Out.AppendChar(TEXT(':'));
		Out += SubPath;
	}
}

UObject* FSoftObjectPath::ResolveObject() const
{
	return IsNull() ? nullptr : StaticFindObject(UObject::StaticClass(), nullptr, *ToString());
}

UObject* FSoftObjectPath::TryLoad() const
{
	return IsNull() ? nullptr : StaticLoadObject(UObject::StaticClass(), nullptr, *ToString());
}
