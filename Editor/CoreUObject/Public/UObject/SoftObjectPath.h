#pragma once

#include "CoreMinimal.h"
#include "UObject/TopLevelAssetPath.h"

class UObject;
class UClass;

/** The path of an object that need not be in memory: package and asset, and a sub-object path behind ':'. */
struct FSoftObjectPath
{
	FSoftObjectPath() = default;
	FSoftObjectPath(const FString& Path) { SetPath(Path); }
	FSoftObjectPath(const TCHAR* Path) { SetPath(Path); }
	explicit FSoftObjectPath(const UObject* Object);
	FSoftObjectPath(const FTopLevelAssetPath& InAssetPath, FString InSubPath = FString())
		: AssetPath(InAssetPath)
		, SubPath(MoveTemp(InSubPath))
	{
	}

	/** Takes "/Game/A/B", "/Game/A/B.B", "/Game/A/B.B:Sub" and the same behind "Class'...'". */
	void SetPath(const FString& Path);
	FString ToString() const;
	void AppendString(FString& Out) const;
	const FTopLevelAssetPath& GetAssetPath() const { return AssetPath; }
	FString GetAssetName() const { return AssetPath.GetAssetName().ToString(); }
	FString GetLongPackageName() const { return AssetPath.GetPackageName().ToString(); }
	FName GetLongPackageFName() const { return AssetPath.GetPackageName(); }
	const FString& GetSubPathString() const { return SubPath; }
	bool IsNull() const { return AssetPath.IsNull(); }
	bool IsValid() const { return !IsNull(); }
	void Reset() { *this = FSoftObjectPath(); }
	/** The object if it is in memory. */
	UObject* ResolveObject() const;
	/** The object, loaded when it must be; null when there is none. */
	UObject* TryLoad() const;
	bool operator==(const FSoftObjectPath& Other) const = default;

private:
	FTopLevelAssetPath AssetPath;
	FString SubPath;
};

using FSoftClassPath = FSoftObjectPath;

inline uint32 GetTypeHash(const FSoftObjectPath& Path)
{
	return GetTypeHash(Path.GetAssetPath().GetPackageName());
}

/** A value of a soft object property. */
struct FSoftObjectPtr
{
	FSoftObjectPtr() = default;
	explicit FSoftObjectPtr(FSoftObjectPath InPath)
		: Path(MoveTemp(InPath))
	{
	}
	UObject* Get() const { return Path.ResolveObject(); }
	UObject* LoadSynchronous() const { return Path.TryLoad(); }
	bool IsNull() const { return Path.IsNull(); }
	bool operator==(const FSoftObjectPtr& Other) const = default;

	FSoftObjectPath Path;
};

template <class T>
struct TSoftObjectPtr : FSoftObjectPtr
{
	using FSoftObjectPtr::FSoftObjectPtr;
};

template <class T>
struct TSoftClassPtr : FSoftObjectPtr
{
	using FSoftObjectPtr::FSoftObjectPtr;
};
