#include "Objects/Reflection/CoreStructs.h"

#include "Objects/Properties/PropertyTextReader.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

namespace CoreStructs
{
static const TCHAR* const PackageName = TEXT("/Script/CoreUObject");
constexpr uint64 MemberFlags = CPF_Edit | CPF_BlueprintVisible | CPF_SaveGame;

template <class T>
static UScriptStruct* RegisterAtomic(
	const TCHAR* CppName, void (*Describe)(FStructDescriber&), const FStructOps* Ops = nullptr)
{
	UScriptStruct* const Struct = NativeClass::RegisterStruct(
		CppName, PackageName, Ops ? Ops : TStructOps<T>::Get(), Describe);
	Struct->StructFlags = STRUCT_Atomic;
	return Struct;
}

static bool ExportGuid(
	FString& Out, const void* Value, const void* Default, UObject* Parent, int32 PortFlags, UObject* ExportRootScope)
{
	Out += static_cast<const FGuid*>(Value)->ToString(EGuidFormats::Digits);
	return true;
}

static bool ImportGuid(const TCHAR*& Buffer, void* Value, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText)
{
	const TCHAR* const Start = PropertyText::SkipBlanks(Buffer);
	const bool bBraced = *Start == TEXT('{') || *Start == TEXT('(');
	FString Token;
	const TCHAR* End = bBraced ? PropertyText::SkipValue(Start) : PropertyText::ReadToken(Start, Token);
	if (bBraced && End)
	{
		Token = FString(static_cast<int32>(End - Start), Start);
	}
	if (!End || !FGuid::Parse(Token, *static_cast<FGuid*>(Value)))
	{
		PropertyText::Report(ErrorText, TEXT("No guid: %s"), Buffer);
		return false;
	}
	Buffer = End;
	return true;
}

/** Reflection knows the parts as signed, since scripts have no unsigned numbers. */
static void DescribeGuid(FStructDescriber& Struct)
{
	const TCHAR* const Names[] = {TEXT("A"), TEXT("B"), TEXT("C"), TEXT("D")};
	for (int32 Index = 0; Index < 4; ++Index)
	{
		FIntProperty* const Property = new FIntProperty(
			FFieldVariant(Struct.GetStruct()), FName(Names[Index]), CPF_Edit | CPF_SaveGame);
		Property->SetLocation(Index * static_cast<int32>(sizeof(uint32)), false);
		Struct.GetStruct()->AddProperty(Property);
	}
}

static bool ExportSoftPath(
	FString& Out, const void* Value, const void* Default, UObject* Parent, int32 PortFlags, UObject* ExportRootScope)
{
	PropertyText::AppendSoftPath(Out, *static_cast<const FSoftObjectPath*>(Value), PortFlags);
	return true;
}

static bool ImportSoftPath(
	const TCHAR*& Buffer, void* Value, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText)
{
	FString Path;
	const TCHAR* const End = PropertyText::ReadReference(
		PropertyText::SkipBlanks(Buffer), (PortFlags & PPF_Delimited) == 0, Path);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("Malformed path: %s"), Buffer);
		return false;
	}
	static_cast<FSoftObjectPath*>(Value)->SetPath(Path);
	Buffer = End;
	return true;
}

template <class T>
static const FStructOps* WithText(decltype(FStructOps::ExportText) Export, decltype(FStructOps::ImportText) Import)
{
	static const FStructOps Ops = [Export, Import]
	{
		FStructOps Made = *TStructOps<T>::Get();
		Made.ExportText = Export;
		Made.ImportText = Import;
		return Made;
	}();
	return &Ops;
}
} // namespace CoreStructs

UScriptStruct* TBaseStructure<FVector>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FVector>(TEXT("FVector"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("X"), &FVector::X, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Y"), &FVector::Y, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Z"), &FVector::Z, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FVector2D>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FVector2D>(TEXT("FVector2D"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("X"), &FVector2D::X, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Y"), &FVector2D::Y, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FVector4>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FVector4>(TEXT("FVector4"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("X"), &FVector4::X, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Y"), &FVector4::Y, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Z"), &FVector4::Z, CoreStructs::MemberFlags);
			Describer.Property(TEXT("W"), &FVector4::W, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FRotator>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FRotator>(TEXT("FRotator"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("Pitch"), &FRotator::Pitch, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Yaw"), &FRotator::Yaw, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Roll"), &FRotator::Roll, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FQuat>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FQuat>(TEXT("FQuat"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("X"), &FQuat::X, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Y"), &FQuat::Y, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Z"), &FQuat::Z, CoreStructs::MemberFlags);
			Describer.Property(TEXT("W"), &FQuat::W, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FTransform>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FTransform>(TEXT("FTransform"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("Rotation"), &FTransform::Rotation, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Translation"), &FTransform::Translation, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Scale3D"), &FTransform::Scale3D, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FLinearColor>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FLinearColor>(TEXT("FLinearColor"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("R"), &FLinearColor::R, CoreStructs::MemberFlags);
			Describer.Property(TEXT("G"), &FLinearColor::G, CoreStructs::MemberFlags);
			Describer.Property(TEXT("B"), &FLinearColor::B, CoreStructs::MemberFlags);
			Describer.Property(TEXT("A"), &FLinearColor::A, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FColor>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FColor>(TEXT("FColor"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("B"), &FColor::B, CoreStructs::MemberFlags);
			Describer.Property(TEXT("G"), &FColor::G, CoreStructs::MemberFlags);
			Describer.Property(TEXT("R"), &FColor::R, CoreStructs::MemberFlags);
			Describer.Property(TEXT("A"), &FColor::A, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FIntPoint>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FIntPoint>(TEXT("FIntPoint"),
		[](FStructDescriber& Describer)
		{
			Describer.Property(TEXT("X"), &FIntPoint::X, CoreStructs::MemberFlags);
			Describer.Property(TEXT("Y"), &FIntPoint::Y, CoreStructs::MemberFlags);
		});
	return Struct;
}

UScriptStruct* TBaseStructure<FGuid>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FGuid>(TEXT("FGuid"), &CoreStructs::DescribeGuid,
		CoreStructs::WithText<FGuid>(&CoreStructs::ExportGuid, &CoreStructs::ImportGuid));
	return Struct;
}

UScriptStruct* TBaseStructure<FSoftObjectPath>::Get()
{
	static UScriptStruct* const Struct = CoreStructs::RegisterAtomic<FSoftObjectPath>(
		TEXT("FSoftObjectPath"), [](FStructDescriber&) {},
		CoreStructs::WithText<FSoftObjectPath>(&CoreStructs::ExportSoftPath, &CoreStructs::ImportSoftPath));
	return Struct;
}

void CoreStructs::RegisterAll()
{
	TBaseStructure<FVector>::Get();
	TBaseStructure<FVector2D>::Get();
	TBaseStructure<FVector4>::Get();
	TBaseStructure<FRotator>::Get();
	TBaseStructure<FQuat>::Get();
	TBaseStructure<FTransform>::Get();
	TBaseStructure<FLinearColor>::Get();
	TBaseStructure<FColor>::Get();
	TBaseStructure<FIntPoint>::Get();
	TBaseStructure<FGuid>::Get();
	TBaseStructure<FSoftObjectPath>::Get();
}
