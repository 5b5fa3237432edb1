#pragma once

#include "Catalogue/CatalogueImage.h"
#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <string>
#include <vector>

/** From records to objects: the engine's image and a project's are read the same way. */
namespace Catalogue
{
/** Which image a struct's pending members come from, and where in it, in the one number that a struct keeps. */
class FDataIndex
{
public:
	explicit FDataIndex(uint32 InPacked)
		: Packed(InPacked)
	{
	}
	FDataIndex(uint32 ImageId, uint32 Row)
		: Packed((ImageId << RowBits) | Row)
	{
		check(Row < (1U << RowBits));
	}
	uint32 GetPacked() const { return Packed; }
	uint32 GetImageId() const { return Packed >> RowBits; }
	uint32 GetRow() const { return Packed & ((1U << RowBits) - 1); }

private:
	static constexpr uint32 RowBits = 24;
	uint32 Packed;
};

/** An image in use, with the objects that its references were resolved to. */
class FLoadedImage
{
public:
	/** Bytes that live as long as the program. */
	FLoadedImage(uint32 InId, std::string_view Bytes);
	/** Bytes of its own. */
	FLoadedImage(uint32 InId, std::string&& Bytes);

	const FImageView& GetView() const { return View; }
	uint32 GetId() const { return Id; }

	/** Ignores case. */
	uint32 FindOwner(FStringView PackageName, FStringView ObjectName) const;
	uint32 FindOwner(FStringView Path) const;
	/** The object that stands for a row of the owner table: found in memory, or made. */
	UObject* GetOwnerObject(uint32 Owner);
	/** The object that a reference means; null for NoIndex, and for one that went away with another file. */
	UObject* Resolve(FReference Reference);
	template <class T>
	T* Resolve(FReference Reference)
	{
		return Cast<T>(Resolve(Reference));
	}

	/** Marks what was made from the image as garbage; the image must not be asked again. */
	void Discard();

	FString Text(FTextOffset Offset) const { return FromUtf8(View.Text(Offset)); }
	FName Name(FTextOffset Offset) const { return FName(View.Text(Offset)); }

	/** Whether all objects of a kind were made by MakeAll. */
	bool bMadeAll[4] = {};

private:
	uint32 Id;
	std::string Storage;
	FImageView View;
	std::vector<UObject*> Owners;
	std::vector<UObject*> References;
	std::vector<UObject*> Made;
};

/** What has been loaded, by image id; null for an image that was unloaded. */
FLoadedImage* FindImage(uint32 Id);

/** The reflection class of an owner's objects. */
UClass* KindOf(EOwnerKind Kind);

/** Makes the object, without members for a class, struct or signature. Nothing of that path is in memory. */
UObject* MakeOwner(FLoadedImage& Image, uint32 Owner, UObject* Outer, FName Name);

/** Adds to a class or struct what its record tells: all of it to one made from data, the rest to a native one. */
void FillStruct(FLoadedImage& Image, const FOwnerRecord& Record, UStruct& Struct);
/** The UStruct fillers. */
void FillFromOwner(UStruct* Struct, uint32 DataIndex);
void FillFromFunction(UStruct* Struct, uint32 DataIndex);
extern int32 NumFilledStructs;

/** A property that stands in no struct yet, with its flags and metadata. Null when its type went away with another
 * file. */
FProperty* MakeProperty(FLoadedImage& Image, const FPropertyRecord& Record, UStruct& Owner, bool bParameter);

/**
 * Gives a property of a native description what the record adds: metadata, and how Blueprints see it where the
 * description says nothing about that.
 */
void DescribeNativeProperty(FLoadedImage& Image, const FPropertyRecord& Record, FProperty& Property);

/** Sets the recorded values and default sub-objects of a class on its new default object. Answers whether there were
 * any. */
bool InitializeDefaults(FLoadedImage& Image, const FOwnerRecord& Record, UClass& Class, UObject& DefaultObject);

/** Reads the catalogue files of a project folder and packs those that hold. Empty when there are none. */
std::string LoadProjectImage(const FString& ProjectFolder, TArray<FString>& OutErrors);
} // namespace Catalogue
