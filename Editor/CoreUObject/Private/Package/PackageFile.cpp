#include "Package/PackageFile.h"
#include "Package/BinaryGaps.h"

#include "BinaryPackage/BinaryPackageText.h"

#include "Files/AtomicFile.h"
#include "Files/FileMishap.h"
#include "Files/PackageLookup.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Standalone/PathConfinement.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <charconv>
#include <cstring>
#include <sys/stat.h>
#include <unordered_map>

namespace PackageFile
{
using namespace std::string_view_literals;

constexpr std::string_view Magic = "uatext "sv;
/** Enough for the header of nearly every asset; a longer one is read in a second step. */
constexpr std::size_t UsualHeaderSize = 4 * 1024;
constexpr std::size_t LongHeaderSize = 32 * 1024;
constexpr std::size_t MaxHeaderSize = 16 * 1024 * 1024;

uint64 ChecksumOf(std::string_view Bytes, uint64 Seed)
{
	// Each step can be undone for a given input, so two texts that differ in one place never meet again by chance of
	// that step.
	constexpr uint64 Prime = 0x9E3779B185EBCA87ull;
	uint64 Sum = Seed ^ (static_cast<uint64>(Bytes.size()) * Prime);
	const auto Mix = [&Sum](uint64 Word)
	{
		Sum = (Sum ^ Word) * Prime;
		Sum ^= Sum >> 29;
	};
	while (Bytes.size() >= sizeof(uint64))
	{
		uint64 Word;
		std::memcpy(&Word, Bytes.data(), sizeof(Word));
		Mix(Word);
		Bytes.remove_prefix(sizeof(Word));
	}
	for (const char Byte : Bytes)
	{
		Mix(static_cast<unsigned char>(Byte));
	}
	return Sum;
}

bool IsEngineBinary(std::string_view Bytes)
{
	return Bytes.substr(0, 4) == "\xC1\x83\x2A\x9E"sv || Bytes.substr(0, 4) == "\x9E\x2A\x83\xC1"sv;
}

static void AppendField(std::string& Out, std::string_view Key, const FString& Value)
{
	Out.append(Key).push_back('=');
	const std::size_t Start = Out.size();
	FUTF8::Append(Out, Value.ToStdWString());
	for (std::size_t At = Start; At < Out.size(); ++At)
	{
		if (Out[At] == '\\' || Out[At] == '\n' || Out[At] == '\r')
		{
			const char Escaped = Out[At] == '\n' ? 'n' : Out[At] == '\r' ? 'r' : '\\';
			Out.replace(At, 1, {'\\', Escaped});
			++At;
		}
	}
	Out.push_back('\n');
}

static FString FieldText(std::string_view Value)
{
	if (Value.find('\\') == std::string_view::npos)
	{
		return FromUtf8(Value);
	}
	std::string Plain;
	for (std::size_t At = 0; At < Value.size(); ++At)
	{
		const bool bEscaped = Value[At] == '\\' && At + 1 < Value.size();
		At += bEscaped ? 1 : 0;
		Plain.push_back(bEscaped && Value[At] == 'n' ? '\n' : bEscaped && Value[At] == 'r' ? '\r' : Value[At]);
	}
	return FromUtf8(Plain);
}

std::string MakeHeader(const FPackageText::FHeader& Header, std::string_view Body, uint64& OutChecksum)
{
	std::string Fields;
	Fields.append("Size=").append(std::to_string(Body.size())).append("\n");
	AppendField(Fields, "Package"sv, Header.PackageName);
	AppendField(Fields, "Asset"sv, Header.AssetName);
	AppendField(Fields, "Class"sv, Header.AssetClassPath);
	for (const FPackageText::FTag& Tag : Header.Tags)
	{
		AppendField(Fields, "Tag." + ToUtf8(Tag.Name.GetView()), Tag.Value);
	}
	Fields.push_back('\n');
	OutChecksum = ChecksumOf(Body, ChecksumOf(Fields));
	char Checksum[17];
	std::snprintf(Checksum, sizeof(Checksum), "%016llx", OutChecksum);
	std::string Result(Magic);
	Result.append(std::to_string(FPackageText::FormatVersion))
		.append("\nChecksum=")
		.append(Checksum)
		.append("\n")
		.append(Fields);
	return Result;
}

/** Reads the header line by line. The outcome is told in one word, so that callers word the message once. */
enum class EHeaderState
{
	Complete,
	Foreign,
	EngineBinary,
	OtherVersion,
	CutOff,
	Malformed,
};

class FHeaderReader
{
public:
	explicit FHeaderReader(std::string_view InBytes)
		: Bytes(InBytes)
	{
	}

	EHeaderState Run(FPackageText::FHeader& OutHeader)
	{
		if (IsEngineBinary(Bytes))
		{
			return EHeaderState::EngineBinary;
		}
		std::string_view Line;
		if (Bytes.substr(0, Magic.size()) != Magic.substr(0, Bytes.size()) || Bytes.empty())
		{
			return EHeaderState::Foreign;
		}
		if (!NextLine(Line))
		{
			return Bytes.size() < 64 ? EHeaderState::CutOff : EHeaderState::Foreign;
		}
		int32 Version = 0;
		if (!ParseNumber(Line.substr(Magic.size()), 10, Version) || Version < 0)
		{
			return EHeaderState::Foreign;
		}
		if (Version < 1 || Version > FPackageText::FormatVersion)
		{
			FoundVersion = Version;
			return EHeaderState::OtherVersion;
		}
		if (!NextLine(Line))
		{
			return EHeaderState::CutOff;
		}
		// Capital digits are refused too: one flipped bit makes them.
		const std::string_view Digits = Line.substr(std::min<std::size_t>(9, Line.size()));
		if (Line.substr(0, 9) != "Checksum="sv || Digits.find_first_of("ABCDEF") != std::string_view::npos
			|| !ParseNumber(Digits, 16, OutHeader.Checksum))
		{
			return EHeaderState::Malformed;
		}
		ChecksumStart = Position;
		return Fields(OutHeader);
	}

	/** Where the bytes begin that the checksum covers. */
	std::size_t ChecksumStart = 0;
	int32 FoundVersion = 0;

private:
	bool NextLine(std::string_view& OutLine)
	{
		const std::size_t End = Bytes.find('\n', Position);
		if (End == std::string_view::npos)
		{
			return false;
		}
		OutLine = Bytes.substr(Position, End - Position);
		Position = End + 1;
		++LineNumber;
		return true;
	}

	template <class TNumber>
	static bool ParseNumber(std::string_view Text, int Base, TNumber& OutNumber)
	{
		const std::from_chars_result Result = std::from_chars(Text.data(), Text.data() + Text.size(), OutNumber, Base);
		return Result.ec == std::errc() && Result.ptr == Text.data() + Text.size() && !Text.empty();
	}

	EHeaderState Fields(FPackageText::FHeader& OutHeader)
	{
		std::string_view Line;
		while (NextLine(Line))
		{
			if (Line.empty())
			{
				OutHeader.BodyOffset = static_cast<int64>(Position);
				OutHeader.BodyLine = LineNumber + 1;
				const bool bWhole = !OutHeader.PackageName.IsEmpty() && !OutHeader.AssetName.IsEmpty() && bHasSize;
				return bWhole ? EHeaderState::Complete : EHeaderState::Malformed;
			}
			const std::size_t Equals = Line.find('=');
			if (Equals == std::string_view::npos
				|| !TakeField(Line.substr(0, Equals), Line.substr(Equals + 1), OutHeader))
			{
				return EHeaderState::Malformed;
			}
		}
		return EHeaderState::CutOff;
	}

	bool TakeField(std::string_view Key, std::string_view Value, FPackageText::FHeader& OutHeader)
	{
		if (Key == "Size"sv)
		{
			bHasSize = ParseNumber(Value, 10, OutHeader.BodySize) && OutHeader.BodySize >= 0;
			return bHasSize;
		}
		if (Key == "Package"sv)
		{
			OutHeader.PackageName = FieldText(Value);
		}
		else if (Key == "Asset"sv)
		{
			OutHeader.AssetName = FieldText(Value);
		}
		else if (Key == "Class"sv)
		{
			OutHeader.AssetClassPath = FieldText(Value);
		}
		else if (Key.substr(0, 4) == "Tag."sv)
		{
			OutHeader.Tags.Add({FName(Key.substr(4)), FieldText(Value)});
		}
		return true;
	}

	std::string_view Bytes;
	std::size_t Position = 0;
	int32 LineNumber = 0;
	bool bHasSize = false;
};

/** One sentence for each way in which a file is not a package that can be read. What others did to it goes first. */
static FString Describe(
	EHeaderState State, const FString& Filename, const FHeaderReader& Reader, std::string_view Bytes)
{
	const bool bReadable = State == EHeaderState::Complete || State == EHeaderState::OtherVersion;
	const FString Mishap = bReadable ? FString() : FileMishap::Find(Bytes);
	if (!Mishap.IsEmpty())
	{
		return FString::Printf(TEXT("%s: the file %s"), *Filename, *Mishap);
	}
	switch (State)
	{
	case EHeaderState::Complete:
		return FString();
	case EHeaderState::Foreign:
		return FString::Printf(TEXT("%s: the file is not a text package"), *Filename);
	case EHeaderState::EngineBinary:
		return FString::Printf(
			TEXT("%s: the file is a package of the engine's own editor; with a name that ends in '.uasset' it is read"),
			*Filename);
	case EHeaderState::OtherVersion:
		return FString::Printf(TEXT("%s: the file has format version %d, this program reads up to version %d"),
			*Filename, Reader.FoundVersion, FPackageText::FormatVersion);
	case EHeaderState::CutOff:
		return FString::Printf(TEXT("%s: the file is truncated within its header"), *Filename);
	case EHeaderState::Malformed:
		return FString::Printf(TEXT("%s: the file is damaged: its header is malformed"), *Filename);
	}
	return FString();
}

bool IsReadable(const FString& Filename, const FString& PackageName, FString& OutError)
{
	std::string Bytes;
	FPackageText::FHeader Header;
	FString Reason;
	if (!AtomicFile::Read(ToUtf8(Filename), Bytes, Reason))
	{
		OutError = FString::Printf(TEXT("%s: %s"), *Filename, *Reason);
		return false;
	}
	if (!FPackageText::CheckBytes(Bytes, Filename, Header, OutError))
	{
		return false;
	}
	if (!Header.PackageName.Equals(PackageName, ESearchCase::IgnoreCase))
	{
		OutError = FString::Printf(
			TEXT("%s: the file holds the package '%s', not '%s'"), *Filename, *Header.PackageName, *PackageName);
		return false;
	}
	return true;
}
} // namespace PackageFile

const FString* FPackageText::FHeader::FindTag(FName Name) const
{
	for (const FTag& Tag : Tags)
	{
		if (Tag.Name == Name)
		{
			return &Tag.Value;
		}
	}
	return nullptr;
}

namespace PackageFile
{
/** What the head of a binary package said, for as long as its file bears that stamp. */
struct FKnownHeader
{
	AtomicFile::FStamp Stamp;
	FPackageText::FHeader Header;
	/** Why it could not be read; empty when it could. */
	FString Error;
};

static std::unordered_map<std::string, FKnownHeader>& KnownHeaders()
{
	static std::unordered_map<std::string, FKnownHeader> Table;
	return Table;
}

static bool ReadHeaderOfBinary(const FString& Filename, FPackageText::FHeader& OutHeader, FString& OutError);

/** Projects hold thousands of such files, and nearly all of them stay as they are from one scan to the next. */
static bool FindHeaderOfBinary(const FString& Filename, FPackageText::FHeader& OutHeader, FString& OutError)
{
	const std::string Path = ToUtf8(Filename);
	const AtomicFile::FStamp Stamp = AtomicFile::StampOf(Path);
	const auto Known = KnownHeaders().find(Path);
	if (Known != KnownHeaders().end() && Known->second.Stamp == Stamp && Stamp.IsValid())
	{
		OutHeader = Known->second.Header;
		OutError = Known->second.Error;
		return OutError.IsEmpty();
	}
	const bool bRead = ReadHeaderOfBinary(Filename, OutHeader, OutError);
	if (bRead && OutHeader.FindTag(TEXT("MemberNames")))
	{
		OutHeader.Tags.Add({FPackageText::VariablesInTag,
			FString::Printf(TEXT("%lld.%lld.%lld %s"), Stamp.Seconds, Stamp.Nanoseconds, Stamp.Size, *Filename)});
	}
	if (AtomicFile::IsSettled(Stamp))
	{
		KnownHeaders()[Path] = {Stamp, OutHeader, OutError};
	}
	return bRead;
}

static bool ReadHeaderOfBinary(const FString& Filename, FPackageText::FHeader& OutHeader, FString& OutError)
{
	const std::string Path = ToUtf8(Filename);
	std::string Bytes;
	std::string Refusal;
	FString Reason;
	OutHeader = FPackageText::FHeader();
	bool bRead = AtomicFile::ReadStart(Path, UsualHeaderSize, Bytes, Reason);
	const std::size_t Size = bRead ? SizeOfBinaryHeader(Bytes) : 0;
	bRead = bRead && (Size <= Bytes.size() || AtomicFile::ReadStart(Path, Size, Bytes, Reason));
	if (!bRead)
	{
		OutError = FString::Printf(TEXT("%s: %s"), *Filename, *Reason);
		return false;
	}
	const FString PackageName = FPackageName::FilenameToLongPackageName(Filename);
	bRead = ReadBinaryHeader(Bytes, ToUtf8(PackageName), OutHeader, Refusal);
	OutError = bRead ? FString() : FString::Printf(TEXT("%s: %s"), *Filename, *FromUtf8(Refusal));
	return bRead;
}
} // namespace PackageFile

const FName FPackageText::VariablesInTag(TEXT("VariablesIn"));

namespace PackageFile
{
static TArray<FPackageText::FVariable> ReadVariables(const FString& Filename)
{
	constexpr int64 MostBytes = 16 * 1024 * 1024;
	const std::string Path = ToUtf8(Filename);
	const std::string Package = ToUtf8(FPackageName::FilenameToLongPackageName(Filename));
	std::string Head;
	std::string Asset;
	FString Ignored;
	TArray<FPackageText::FVariable> Variables;
	const bool bHead = AtomicFile::ReadStart(Path, UsualHeaderSize, Head, Ignored)
		&& (SizeOfBinaryHeader(Head) <= Head.size()
			|| AtomicFile::ReadStart(Path, SizeOfBinaryHeader(Head), Head, Ignored));
	const FBinaryRange Range = bHead ? FindBinaryAsset(Head, Package) : FBinaryRange();
	if (Range.Size <= 0 || Range.Size > MostBytes
		|| !AtomicFile::ReadPart(Path, Range.Offset, static_cast<std::size_t>(Range.Size), Asset))
	{
		return Variables;
	}
	for (const FBinaryVariable& Variable : ReadBinaryVariables(Head, Package, Asset))
	{
		if (!Variable.bIsPrivate)
		{
			Variables.Add(
				{FromUtf8(Variable.Name), FromUtf8(Variable.Category), Variable.bIsBool, Variable.bIsReadOnly});
		}
	}
	return Variables;
}
} // namespace PackageFile

const TArray<FPackageText::FVariable>& FPackageText::ListVariables(const FString& VariablesIn)
{
	static std::unordered_map<std::string, std::pair<std::string, TArray<FVariable>>> Known;
	int32 Blank = INDEX_NONE;
	const FString Filename = VariablesIn.FindChar(TEXT(' '), Blank) ? VariablesIn.Mid(Blank + 1) : FString();
	const std::string State = ToUtf8(VariablesIn);
	auto& [KnownState, Variables] = Known[ToUtf8(Filename)];
	if (KnownState != State)
	{
		Variables = PackageFile::ReadVariables(Filename);
		KnownState = State;
	}
	return Variables;
}

bool FPackageText::IsBinaryFile(const FString& Filename)
{
	return Filename.EndsWith(TEXT(".uasset"), ESearchCase::IgnoreCase)
		|| Filename.EndsWith(TEXT(".umap"), ESearchCase::IgnoreCase);
}

bool FPackageText::ImportBinary(
	const FString& Filename, const FString& LongPackageName, TArray<FString>& OutWarnings, FString& OutError)
{
	const FString Target = FPackageName::LongPackageNameToFilename(
		LongPackageName, FPackageName::GetAssetPackageExtension());
	if (Target.IsEmpty() || !PackageLookup::FindOnDisk(LongPackageName).IsEmpty())
	{
		OutError = Target.IsEmpty()
			? FString::Printf(TEXT("'%s' is no path of a package"), *LongPackageName)
			: FString::Printf(TEXT("There is a text package at '%s' already"), *LongPackageName);
		return false;
	}
	std::string Bytes;
	std::string Text;
	std::string Refusal;
	FBinaryPackageFindings Findings;
	FString Reason;
	if (!AtomicFile::Read(ToUtf8(Filename), Bytes, Reason))
	{
		OutError = FString::Printf(TEXT("%s: %s"), *Filename, *Reason);
		return false;
	}
	if (!MakePackageTextOfBinary(Bytes, ToUtf8(LongPackageName), Text, Findings, Refusal))
	{
		OutError = FString::Printf(TEXT("%s: %s"), *Filename, *FromUtf8(Refusal));
		return false;
	}
	for (const std::string& Warning : Findings.Warnings)
	{
		OutWarnings.Add(FromUtf8(Warning));
	}
	for (const FBinaryPackageFindings::FLeftOut& LeftOut : Findings.LeftOut)
	{
		OutWarnings.Add(
			FromUtf8(LeftOut.Object + ": the value of " + LeftOut.Value + " was not understood and is left out"));
	}
	const std::string Path = ToUtf8(Target);
	AtomicFile::FStamp Ignored;
	const bool bWritten = FPathConfinement::IsInside(Target, Reason)
		&& AtomicFile::MakeFolders(Path.substr(0, Path.rfind('/')), Reason)
		&& AtomicFile::Write(Path, {Text}, AtomicFile::FStamp(), Ignored, Reason);
	OutError = bWritten ? FString() : FString::Printf(TEXT("%s: %s"), *Target, *Reason);
	return bWritten;
}

bool FPackageText::ReadHeader(const FString& Filename, FHeader& OutHeader, FString& OutError)
{
	const std::string Path = ToUtf8(Filename);
	std::string Bytes;
	if (IsBinaryFile(Filename))
	{
		return PackageFile::FindHeaderOfBinary(Filename, OutHeader, OutError);
	}
	for (const std::size_t Limit :
		{PackageFile::UsualHeaderSize, PackageFile::LongHeaderSize, PackageFile::MaxHeaderSize})
	{
		FString Reason;
		if (!AtomicFile::ReadStart(Path, Limit, Bytes, Reason))
		{
			OutError = FString::Printf(TEXT("%s: %s"), *Filename, *Reason);
			return false;
		}
		OutHeader = FHeader();
		PackageFile::FHeaderReader Reader(Bytes);
		const PackageFile::EHeaderState State = Reader.Run(OutHeader);
		if (State != PackageFile::EHeaderState::CutOff || Bytes.size() < Limit || Limit == PackageFile::MaxHeaderSize)
		{
			OutError = PackageFile::Describe(State, Filename, Reader, Bytes);
			return State == PackageFile::EHeaderState::Complete;
		}
	}
	return false;
}

bool FPackageText::CheckBytes(std::string_view Bytes, const FString& Filename, FHeader& OutHeader, FString& OutError)
{
	OutHeader = FHeader();
	PackageFile::FHeaderReader Reader(Bytes);
	const PackageFile::EHeaderState State = Reader.Run(OutHeader);
	if (State != PackageFile::EHeaderState::Complete)
	{
		OutError = PackageFile::Describe(State, Filename, Reader, Bytes);
		return false;
	}
	const std::size_t BodyOffset = static_cast<std::size_t>(OutHeader.BodyOffset);
	const int64 Present = static_cast<int64>(Bytes.size() - BodyOffset);
	const std::string_view Fields = Bytes.substr(Reader.ChecksumStart, BodyOffset - Reader.ChecksumStart);
	const std::string_view Body = Bytes.substr(BodyOffset);
	const bool bMatches = PackageFile::ChecksumOf(Body, PackageFile::ChecksumOf(Fields)) == OutHeader.Checksum;
	const FString Mishap = bMatches ? FString() : FileMishap::Find(Bytes);
	if (!Mishap.IsEmpty())
	{
		OutError = FString::Printf(TEXT("%s: the file %s"), *Filename, *Mishap);
		return false;
	}
	if (Present < OutHeader.BodySize)
	{
		OutError = FString::Printf(
			TEXT("%s: the file is truncated: %lld of %lld bytes are there"), *Filename, Present, OutHeader.BodySize);
		return false;
	}
	if (!bMatches)
	{
		OutError = FString::Printf(
			TEXT("%s: the file is damaged: its checksum does not match its contents"), *Filename);
		return false;
	}
	return true;
}

std::string FPackageText::MakeBytes(const FHeader& Header, std::string_view Body)
{
	uint64 Checksum = 0;
	return PackageFile::MakeHeader(Header, Body, Checksum).append(Body);
}

namespace PackageFile
{
static TArray<FString>& Problems()
{
	static TArray<FString> List;
	return List;
}

void NoteProblem(const FString& Problem)
{
	constexpr int32 MaxKept = 64;
	for (const FString& Known : Problems())
	{
		if (Known.Equals(Problem, ESearchCase::CaseSensitive))
		{
			return;
		}
	}
	if (Problems().Num() >= MaxKept)
	{
		Problems().RemoveAt(0);
	}
	Problems().Add(Problem);
}
} // namespace PackageFile

TArray<FString> FPackageText::TakeProblems()
{
	TArray<FString> Taken = MoveTemp(PackageFile::Problems());
	PackageFile::Problems() = TArray<FString>();
	Taken.Append(BinaryGaps::Take());
	return Taken;
}

FString FPackageText::FindEngineAsset(const FString& LongPackageName)
{
	for (const TCHAR* const Extension : {TEXT(".uasset"), TEXT(".umap")})
	{
		FString Filename = PackageLookup::FindOnDisk(LongPackageName, Extension);
		if (!Filename.IsEmpty())
		{
			return Filename;
		}
	}
	return FString();
}

namespace PackageFile
{
static void AddClassTag(TArray<FPackageText::FTag>& Tags, const TCHAR* Name, const UClass* Class)
{
	if (Class)
	{
		Tags.Add(
			{FName(Name), FString::Printf(TEXT("%s'%s'"), *Class->GetClass()->GetPathName(), *Class->GetPathName())});
	}
}

static const UClass* ClassIn(const UObject& Asset, const TCHAR* PropertyName)
{
	const FObjectPropertyBase* const Property = CastField<FObjectPropertyBase>(
		Asset.GetClass()->FindPropertyByName(FName(PropertyName)));
	return Property ? Cast<UClass>(Property->GetObjectPropertyValue_InContainer(&Asset)) : nullptr;
}
} // namespace PackageFile

TArray<FPackageText::FTag> FPackageText::CollectTags(const UObject& Asset)
{
	TArray<FTag> Tags;
	const UClass* const Parent = PackageFile::ClassIn(Asset, TEXT("ParentClass"));
	PackageFile::AddClassTag(Tags, TEXT("ParentClass"), Parent);
	const UClass* Native = Parent;
	while (Native && !FPackageName::IsScriptPackage(Native->GetOutermost()->GetName()))
	{
		Native = Native->GetSuperClass();
	}
	PackageFile::AddClassTag(Tags, TEXT("NativeParentClass"), Native);
	PackageFile::AddClassTag(Tags, TEXT("GeneratedClass"), PackageFile::ClassIn(Asset, TEXT("GeneratedClass")));
	const FProperty* const Type = Asset.GetClass()->FindPropertyByName(TEXT("BlueprintType"));
	if (Type)
	{
		FString Text;
		Type->ExportTextItem_Direct(Text, Type->GetValuePtr(&Asset), nullptr, nullptr, 0);
		Tags.Add({TEXT("BlueprintType"), Text});
	}
	return Tags;
}
