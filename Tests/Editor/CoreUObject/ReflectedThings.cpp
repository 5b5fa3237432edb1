#include "ReflectedThings.h"

#include "Standalone/ObjectProviders.h"

IMPLEMENT_EDITOR_CLASS(UThingListener, "/Script/ThingTests", CLASS_Abstract | CLASS_Interface)
IMPLEMENT_EDITOR_CLASS(UThing, "/Script/ThingTests", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UThingOwner, "/Script/ThingTests", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FThingPart, "/Script/ThingTests")

template <>
UEnum* StaticEnum<EThingMood>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EThingMood"), TEXT("/Script/ThingTests"),
		UEnum::ECppForm::EnumClass,
		{{TEXT("None"), 0}, {TEXT("Calm"), 1, TEXT("Very Calm")}, {TEXT("Angry"), 7}, {TEXT("EThingMood_MAX"), 8}});
	return Enum;
}

template <>
UEnum* StaticEnum<EThingOldMode>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EThingOldMode"), TEXT("/Script/ThingTests"),
		UEnum::ECppForm::Regular, {{TEXT("TMODE_Off"), 0}, {TEXT("TMODE_On"), 1}});
	return Enum;
}

void FThingPart::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Label"), &FThingPart::Label, CPF_Edit);
	Struct.Property(TEXT("Count"), &FThingPart::Count, CPF_Edit);
	Struct.Property(TEXT("Place"), &FThingPart::Place, CPF_Edit);
	Struct.Property(TEXT("Parts"), &FThingPart::Parts, CPF_Edit);
	Struct.Property(TEXT("Target"), &FThingPart::Target, CPF_Edit);
}

void UThingListener::DescribeClass(FClassDescriber& Class) {}

void UThing::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bOpen"), &UThing::bOpen, CPF_Edit);
	Class.Property(TEXT("Tiny"), &UThing::Tiny);
	Class.Property(TEXT("Short"), &UThing::Short);
	Class.Property(TEXT("Number"), &UThing::Number, CPF_Edit);
	Class.Property(TEXT("Long"), &UThing::Long);
	Class.Property(TEXT("Byte"), &UThing::Byte);
	Class.Property(TEXT("UShort"), &UThing::UShort);
	Class.Property(TEXT("UNumber"), &UThing::UNumber);
	Class.Property(TEXT("ULong"), &UThing::ULong);
	Class.Property(TEXT("Ratio"), &UThing::Ratio);
	Class.Property(TEXT("Distance"), &UThing::Distance);
	Class.Property(TEXT("Tag"), &UThing::Tag);
	Class.Property(TEXT("Text"), &UThing::Text);
	Class.Property(TEXT("Shown"), &UThing::Shown);
	Class.Property(TEXT("Mood"), &UThing::Mood);
	Class.Property(TEXT("Mode"), &UThing::Mode);
	Class.Property(TEXT("Part"), &UThing::Part);
	Class.Property(TEXT("Vector"), &UThing::Vector);
	Class.Property(TEXT("Colour"), &UThing::Colour);
	Class.Property(TEXT("Id"), &UThing::Id);
	Class.Property(TEXT("PlainPath"), &UThing::PlainPath);
	Class.Property(TEXT("Friend"), &UThing::Friend);
	Class.Property(TEXT("AnyClass"), &UThing::AnyClass);
	Class.Property(TEXT("ThingClass"), &UThing::ThingClass);
	Class.Property(TEXT("Weak"), &UThing::Weak);
	Class.Property(TEXT("Soft"), &UThing::Soft);
	static_cast<FInterfaceProperty&>(Class.Property(TEXT("Listener"), &UThing::Listener))
		.SetInterfaceClass(UThingListener::StaticClass());
	Class.Property(TEXT("Delegate"), &UThing::Delegate);
	Class.Property(TEXT("Event"), &UThing::Event);
	Class.Property(TEXT("Numbers"), &UThing::Numbers);
	Class.Property(TEXT("Parts"), &UThing::Parts);
	Class.Property(TEXT("Friends"), &UThing::Friends);
	Class.Property(TEXT("Tags"), &UThing::Tags);
	Class.Property(TEXT("Scores"), &UThing::Scores);
	Class.Property(TEXT("Places"), &UThing::Places);
	Class.Property(TEXT("FriendSet"), &UThing::FriendSet);
	Class.Property(TEXT("Fleeting"), &UThing::Fleeting, CPF_Transient | CPF_DuplicateTransient);
}

void UThing::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	if (!Custom.IsEmpty())
	{
		Out.Logf(TEXT("CustomProperties Thing %s"), *Custom);
	}
}

void UThing::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	Custom = FString(SourceText);
	Custom.RemoveFromStart(TEXT("Thing "), ESearchCase::CaseSensitive);
}

UThingOwner::UThingOwner()
{
	Held = CreateDefaultSubobject<UThing>(TEXT("Held"));
	Held->Number = 11;
}

void UThingOwner::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Held"), &UThingOwner::Held, CPF_InstancedReference | CPF_ExportObject);
	Class.Implements(UThingListener::StaticClass());
}

FThingPackage::FThingPackage()
{
	RegisterCoreUObjectClasses();
	NativeClass::RegisterNativeClasses({&UThingListener::StaticClass, &UThing::StaticClass, &UThingOwner::StaticClass});
	static int32 NumMade = 0;
	Package = CreatePackage(*FString::Printf(TEXT("/Game/Things/P%d"), NumMade++));
}

FThingPackage::~FThingPackage()
{
	Package->MarkAsGarbage();
	CollectGarbage();
}

UThing* FThingPackage::Make(const TCHAR* Name, UObject* Outer) const
{
	return NewObject<UThing>(Outer ? Outer : Package, FName(Name));
}

UClass* FThingPackage::MakeClass(const TCHAR* Name, UClass* Super) const
{
	UClass* const Class = NewObject<UClass>(Package, FName(Name));
	Class->SetSuperStruct(Super);
	return Class;
}

FString ExportValue(UObject* Object, const TCHAR* PropertyName, int32 PortFlags)
{
	const FProperty* const Property = Object->GetClass()->FindPropertyByName(FName(PropertyName));
	const void* const Value = Property->GetValuePtr(Object);
	FString Text;
	Property->ExportText_Direct(Text, Value, Value, Object, PortFlags);
	return Text;
}

bool ImportValue(
	UObject* Object, const TCHAR* PropertyName, const TCHAR* Text, int32 PortFlags, FOutputDevice* ErrorText)
{
	const FProperty* const Property = Object->GetClass()->FindPropertyByName(FName(PropertyName));
	const TCHAR* const End = Property->ImportText_Direct(
		Text, Property->GetValuePtr(Object), Object, PortFlags, ErrorText);
	return End && !*End;
}
