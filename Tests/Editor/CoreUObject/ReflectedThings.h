#pragma once

#include "CoreMinimal.h"
#include "Standalone/NativeClass.h"
#include "UObject/Package.h"

/** Native types with one member of every kind that properties know, for the tests of this folder. */

enum class EThingMood : uint8
{
	None,
	Calm,
	Angry = 7,
};

enum EThingOldMode : int
{
	TMODE_Off,
	TMODE_On,
};

template <>
UEnum* StaticEnum<EThingMood>();
template <>
UEnum* StaticEnum<EThingOldMode>();

struct FThingPart
{
	EDITOR_STRUCT(FThingPart)

	FString Label = TEXT("part");
	int32 Count = 3;
	FVector Place;
	TArray<FThingPart> Parts;
	TObjectPtr<UObject> Target;

	bool operator==(const FThingPart& Other) const
	{
		return Label.Equals(Other.Label) && Count == Other.Count && Place == Other.Place && Parts == Other.Parts
			&& Target == Other.Target;
	}
};

class IThingListener
{
public:
	using UClassType = class UThingListener;
	virtual ~IThingListener() = default;
	virtual int32 Listen() const = 0;
};

class UThingListener : public UInterface
{
	EDITOR_CLASS(UThingListener, UInterface)
};

class UThing : public UObject
{
	EDITOR_CLASS(UThing, UObject)

public:
	void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;
	void PostDuplicate(bool bDuplicateForPIE) override { ++NumPostDuplicate; }

	bool bOpen = false;
	int8 Tiny = 0;
	int16 Short = 0;
	int32 Number = 5;
	int64 Long = 0;
	uint8 Byte = 0;
	uint16 UShort = 0;
	uint32 UNumber = 0;
	uint64 ULong = 0;
	float Ratio = 0.0f;
	double Distance = 0.0;
	FName Tag;
	FString Text;
	FText Shown;
	EThingMood Mood = EThingMood::None;
	EThingOldMode Mode = TMODE_Off;
	FThingPart Part;
	FVector Vector;
	FLinearColor Colour;
	FGuid Id;
	FSoftObjectPath PlainPath;
	TObjectPtr<UObject> Friend;
	TObjectPtr<UClass> AnyClass;
	TSubclassOf<UThing> ThingClass;
	TWeakObjectPtr<UThing> Weak;
	TSoftObjectPtr<UThing> Soft;
	FScriptInterface Listener;
	FScriptDelegate Delegate;
	FMulticastScriptDelegate Event;
	TArray<int32> Numbers;
	TArray<FThingPart> Parts;
	TArray<TObjectPtr<UObject>> Friends;
	TSet<FName> Tags;
	TMap<FName, int32> Scores;
	TMap<FString, FVector> Places;
	TSet<TObjectPtr<UObject>> FriendSet;
	int32 Fleeting = 0;

	FString Custom;
	int32 NumPostDuplicate = 0;
};

/** Has a sub-object that its constructor makes, and a C++ interface. */
class UThingOwner : public UThing, public IThingListener
{
	EDITOR_CLASS(UThingOwner, UThing)

public:
	UThingOwner();
	int32 Listen() const override { return Number; }

	TObjectPtr<UThing> Held;
};

/** Registers the above and answers a fresh package; everything below it goes when this does. */
class FThingPackage
{
public:
	FThingPackage();
	~FThingPackage();

	UPackage* Get() const { return Package; }
	UThing* Make(const TCHAR* Name, UObject* Outer = nullptr) const;
	/** A class without C++ of its own below the given one, as a Blueprint's is. Add properties, then Link. */
	UClass* MakeClass(const TCHAR* Name, UClass* Super) const;
	FString Path(const TCHAR* Below = TEXT("")) const { return Package->GetName() + Below; }

private:
	UPackage* Package;
};

/** Adds a property of a C++ type to a class or struct that is data only. */
template <class T>
FProperty* AddDataProperty(UStruct* Struct, const TCHAR* Name)
{
	FProperty* const Property = NativeClass::MakeProperty<T>(FFieldVariant(Struct), FName(Name));
	Struct->AddProperty(Property);
	return Property;
}

template <class T>
T& ValueOf(UObject* Object, const TCHAR* Name)
{
	return *static_cast<T*>(Object->GetClass()->FindPropertyByName(FName(Name))->GetValuePtr(Object));
}

/** The value's text in the form that files have: delimited, whole. */
FString ExportValue(UObject* Object, const TCHAR* PropertyName, int32 PortFlags = PPF_Delimited);
/** Whether the text was read to its end. */
bool ImportValue(UObject* Object, const TCHAR* PropertyName, const TCHAR* Text, int32 PortFlags = PPF_Delimited,
	FOutputDevice* ErrorText = nullptr);

inline std::string AsUtf8(const FString& Text)
{
	return std::string(reinterpret_cast<const char*>(FTCHARToUTF8(*Text).Get()));
}
inline std::ostream& operator<<(std::ostream& Out, const FString& Text)
{
	return Out << AsUtf8(Text);
}
