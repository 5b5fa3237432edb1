#include "Misc/StringOutputDevice.h"
#include "ReflectedThings.h"
#include "Session/EditorModules.h"

#include <gtest/gtest.h>

// These read all members of the catalogue, so the file's name puts them behind the tests that nothing is read in vain.
namespace CatalogueValues
{
/** Whether what a property writes is read back whole and written the same. */
static void ExpectRoundTrip(const FProperty& Property, UObject* Object, UObject* Other)
{
	FString Written;
	const void* const Value = Property.GetValuePtr(Object);
	ASSERT_NE(Value, nullptr) << Property.GetPathName();
	Property.ExportTextItem_Direct(Written, Value, Value, Object, PPF_Delimited);
	FStringOutputDevice Error;
	void* const Target = Property.GetValuePtr(Other);
	const TCHAR* const End = Property.ImportText_Direct(*Written, Target, Other, PPF_Delimited, &Error);
	ASSERT_NE(End, nullptr) << Property.GetPathName() << " = " << Written << ": " << Error;
	EXPECT_EQ(*End, TEXT('\0')) << Property.GetPathName() << " = " << Written;
	FString Again;
	Property.ExportTextItem_Direct(Again, Target, Target, Other, PPF_Delimited);
	const bool bOwnSubObject = Written.Contains(Object->GetPathName());
	EXPECT_TRUE(bOwnSubObject || Again.Equals(Written)) << Property.GetPathName() << ": " << Written << " / " << Again;
}

TEST(CatalogueValues, EveryClassHasADefaultObjectWhoseValuesAreReadAsWritten)
{
	EditorModules::StartEditor();
	const FThingPackage Package;
	TArray<UClass*> Classes;
	GetDerivedClasses(UObject::StaticClass(), Classes);
	ASSERT_GT(Classes.Num(), 1000);
	int32 NumProperties = 0;
	for (UClass* const Class : Classes)
	{
		if (Class->IsChildOf(UField::StaticClass()) || Class->IsChildOf(UPackage::StaticClass()))
		{
			continue;
		}
		UObject* const Default = Class->GetDefaultObject();
		ASSERT_TRUE(Default && Default->GetClass() == Class) << Class->GetPathName();
		UObject* const Instance = NewObject<UObject>(Package.Get(), Class);
		for (TFieldIterator<FProperty> It(Class); It; ++It)
		{
			ExpectRoundTrip(**It, Default, Instance);
			++NumProperties;
		}
		EXPECT_FALSE(Class->GetDisplayNameText().IsEmpty()) << Class->GetPathName();
	}
	EXPECT_GT(NumProperties, 10000);
}

TEST(CatalogueValues, EveryStructHasAValueThatIsReadAsWritten)
{
	EditorModules::StartEditor();
	const FThingPackage Package;
	TArray<UObject*> Structs;
	GetObjectsOfClass(UScriptStruct::StaticClass(), Structs);
	ASSERT_GT(Structs.Num(), 500);
	for (UObject* const Object : Structs)
	{
		const UScriptStruct* const Struct = static_cast<UScriptStruct*>(Object);
		if (Struct->GetOutermost() == Package.Get())
		{
			continue;
		}
		FStructProperty Property(FFieldVariant(), TEXT("Value"));
		Property.Struct = const_cast<UScriptStruct*>(Struct);
		const void* const Default = Struct->GetDefaultValue();
		FString Written;
		Property.ExportTextItem_Direct(Written, Default, Default, nullptr, PPF_Delimited);
		std::vector<uint8> Memory(static_cast<std::size_t>(Struct->GetStructureSize()) + 16);
		uint8* const Value = Memory.data() + (16 - reinterpret_cast<UPTRINT>(Memory.data()) % 16) % 16;
		Struct->InitializeStruct(Value);
		FStringOutputDevice Error;
		const TCHAR* const End = Property.ImportText_Direct(*Written, Value, nullptr, PPF_Delimited, &Error);
		EXPECT_TRUE(End && !*End) << Struct->GetPathName() << " = " << Written << ": " << Error;
		EXPECT_TRUE(Property.Identical(Value, Default)) << Struct->GetPathName() << " = " << Written;
		Struct->DestroyStruct(Value);
	}
}
} // namespace CatalogueValues
