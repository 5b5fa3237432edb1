// Files that are damaged, cut off or made to hurt: told by a sentence or read as far as they hold, in time and memory
// that their size bounds.

#include "BinaryPackageTest.h"
#include "BinaryTestValues.h"
#include "Standalone/ObjectText.h"
#include "TablePackages.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace BinaryHostileTest
{
static FTestPackage::FWritten WriteSmall(const std::string& Engine, const SmallBlueprint::FExtra Extra = nullptr)
{
	return SmallBlueprint::Make(FPackageLayout::Of(Engine), Extra).Write();
}

/** What must hold of any bytes at all: a sentence, or text that the loader's parser takes. Empty when it does. */
static std::string FindFault(const std::string& Bytes)
{
	const FBinaryOutcome Outcome = ReadBinary(Bytes);
	FPackageText::FHeader Header;
	std::string Refusal;
	const bool bHeader = ReadBinaryHeader(Bytes, "/Game/BP_Small", Header, Refusal);
	if ((!Outcome.bRead && Outcome.Refusal.empty()) || (!bHeader && Refusal.empty()))
	{
		return "refused without a reason";
	}
	if (Outcome.bRead && !bHeader)
	{
		return "read, and not listed: " + Refusal;
	}
	FObjectTextTree Tree;
	FObjectTextError Error;
	return !Outcome.bRead || Tree.ParseView(Outcome.Body, Error)
		? std::string()
		: "line " + std::to_string(Error.LineNumber) + ": " + ToUtf8(Error.Message);
}

/** One change of a file, as a bad disk or a bad mind makes it. */
static void Change(std::string& Bytes, std::mt19937& Random)
{
	const auto Below = [&Random](const std::size_t Limit) { return Limit == 0 ? 0 : Random() % Limit; };
	const std::size_t At = Below(Bytes.size());
	switch (Below(6))
	{
	case 0:
		Bytes[At] = static_cast<char>(Bytes[At] ^ (1 << Below(8)));
		break;
	case 1:
		Bytes[At] = static_cast<char>(Random());
		break;
	case 2:
	{
		static constexpr int32_t Numbers[] = {-1, 0, 1, 2, 255, 0x7FFFFFFF, INT32_MIN, 65536, 1018, -9};
		const int32_t Number = Numbers[Below(std::size(Numbers))];
		Bytes.replace(At, std::min<std::size_t>(4, Bytes.size() - At), reinterpret_cast<const char*>(&Number),
			std::min<std::size_t>(4, Bytes.size() - At));
		break;
	}
	case 3:
		Bytes.erase(At, Below(9));
		break;
	case 4:
		Bytes.insert(At, Bytes.substr(Below(Bytes.size()), Below(64)));
		break;
	default:
		Bytes.resize(At + Below(2) * (Bytes.size() - At));
		break;
	}
}

static int GetNumChanges()
{
	const char* const Asked = std::getenv("MORVANE_BINARY_CHANGES");
	return Asked ? std::atoi(Asked) : 2000;
}

#ifdef __has_feature
#define MORVANE_HAS_FEATURE(Name) __has_feature(Name)
#else
#define MORVANE_HAS_FEATURE(Name) 0
#endif

#if defined(__SANITIZE_ADDRESS__) || MORVANE_HAS_FEATURE(address_sanitizer)
constexpr bool bMemoryCanBeBounded = false;
#else
constexpr bool bMemoryCanBeBounded = true;
#endif

static std::size_t GetAddressSpace()
{
	std::size_t Pages = 0;
	std::ifstream("/proc/self/statm") >> Pages;
	return Pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/** Reads in a process of its own that may take so many bytes more and so many seconds; says what became of it. */
static std::string ReadWithin(const std::string& Bytes, const std::size_t NumBytes, const unsigned Seconds)
{
	const pid_t Child = fork();
	if (Child == 0)
	{
		const rlimit Limit = {GetAddressSpace() + NumBytes, RLIM_INFINITY};
		if (bMemoryCanBeBounded)
		{
			setrlimit(RLIMIT_AS, &Limit);
		}
		alarm(Seconds);
		int Status = 3;
		try
		{
			Status = FindFault(Bytes).empty() ? 0 : 1;
		}
		catch (const std::bad_alloc&)
		{
			Status = 2;
		}
		_exit(Status);
	}
	int Status = 0;
	waitpid(Child, &Status, 0);
	if (WIFSIGNALED(Status))
	{
		return WTERMSIG(Status) == SIGALRM ? "takes too long" : "signal " + std::to_string(WTERMSIG(Status));
	}
	static constexpr const char* Ends[] = {"", "a fault", "takes too much memory", "an exception"};
	return Ends[std::min(WEXITSTATUS(Status), 3)];
}
} // namespace BinaryHostileTest

TEST(BinaryRefusal, EachKindOfFileThatIsNotReadHasItsSentence)
{
	using namespace BinaryHostileTest;
	const auto Patched = [](const std::string& Engine, const char* const Place, const int32_t Value)
	{
		FTestPackage::FWritten Written = WriteSmall(Engine);
		Written.Patch(Place, Value);
		return Written.Bytes;
	};
	constexpr int32_t Unversioned = 0x2000;
	const struct
	{
		const char* Label;
		std::string Bytes;
		const char* Sentence;
	} Rows[] = {
		{"nothing", "", "the file is empty"},
		{"text", "hello, this is a text and no package",
			"the file is no package: it does not begin as one, or it is encrypted"},
		{"git lfs", "version https://git-lfs.github.com/spec/v1\noid sha256:0\nsize 1\n",
			"the file is a Git LFS pointer and not the package itself; 'git lfs pull' fetches it"},
		{"git-crypt", std::string("\0GITCRYPT\0and more", 18),
			"the file is encrypted by git-crypt; 'git-crypt unlock' opens it"},
		{"age", "age-encryption.org/v1\n-> X25519", "the file is encrypted (by age)"},
		{"openssl", "Salted__12345678", "the file is encrypted (by OpenSSL)"},
		{"archive", std::string("PK\3\4\0\0", 6), "the file is a zip archive and no package"},
		{"merge", "<<<<<<< HEAD\n", "the file is no package: it holds the marks of a merge that was not finished"},
		{"text package", "uatext 1\nChecksum=0\n",
			"the file is a text package under the name of a binary one; its name has to end in '.uatext'"},
		{"zeros", std::string(5000, '\0'), "the file holds zeros alone: its contents were lost"},
		{"byte order", Patched("5.7", "Tag", static_cast<int32_t>(0xC1832A9E)),
			"the package was written for another byte order; only packages of the editor can be read"},
		{"unversioned", Patched("4.27", "Ue4", 0),
			"the package is cooked (it names no version); only packages of the editor can be read"},
		{"cooked", Patched("5.1", "PackageFlags", INT32_MIN),
			"the package is cooked (what only the editor needs was left out); only packages of the editor can be read"},
		{"without names of properties", Patched("5.1", "PackageFlags", Unversioned),
			"the package is cooked (its properties bear no names); only packages of the editor can be read"},
		{"compressed", Patched("4.20", "CompressedChunks", 2),
			"the package is compressed; only uncompressed packages of the editor can be read"},
		{"old", Patched("4.20", "Ue4", 504),
			"the package was written by an engine before 4.13; save it anew with a later editor"},
		{"very old", Patched("4.20", "Legacy", -5),
			"the package was written by an engine before 4.13; save it anew with a later editor"},
		{"a new form", Patched("5.7", "Legacy", -10),
			"the package was written by an engine newer than 5.7, whose layout is not known"},
		{"head cut off", WriteSmall("5.7").Bytes.substr(0, 10), "the package is damaged: it ends within its head"},
		{"no asset", FTestPackage(FPackageLayout::Of("5.7"), "/Game/X").Write().Bytes, "the package holds no asset"},
	};
	for (const auto& Row : Rows)
	{
		const FBinaryOutcome Outcome = ReadBinary(Row.Bytes);
		EXPECT_FALSE(Outcome.bRead) << Row.Label;
		EXPECT_EQ(Outcome.Refusal, Row.Sentence) << Row.Label;
	}
}

TEST(BinaryRefusal, DamageIsToldWithItsPlace)
{
	using namespace BinaryHostileTest;
	const struct
	{
		const char* Place;
		int32_t Value;
		const char* Start;
	} Rows[] = {
		{"Names.Count", 0x7FFFFFFF, "the package is damaged: its table of names ends or breaks off at byte "},
		{"Names.Offset", -4, "the package is damaged: its table of names ends or breaks off at byte "},
		{"Names.Offset", 0x7FFFFFFF, "the package is damaged: its table of names ends or breaks off at byte "},
		{"Imports.Count", -1, "the package is damaged: its table of imports ends or breaks off at byte "},
		{"Imports.Offset", 1, "the package is damaged: its table of imports ends or breaks off at byte "},
		{"Exports.Count", 100000, "the package is damaged: its table of exports ends or breaks off at byte "},
		{"Areas.Count", 0x10000000, "the package is damaged: its head ends or breaks off at byte "},
		{"Generations.Count", -2, "the package is damaged: its head ends or breaks off at byte "},
		{"Cooked.Count", 0x7FFFFFFF, "the package is damaged: its head ends or breaks off at byte "},
	};
	for (const std::string Engine : {"4.20", "5.7"})
	{
		for (const auto& Row : Rows)
		{
			SCOPED_TRACE(Engine + " " + Row.Place);
			FTestPackage::FWritten Written = WriteSmall(Engine);
			Written.Patch(Row.Place, Row.Value);
			EXPECT_THAT(ReadBinary(Written.Bytes).Refusal, StartsWith(Row.Start));
		}
	}
}

TEST(BinaryRefusal, ALaterEngineIsReadAsFarAsItsBoundsHold)
{
	using namespace BinaryHostileTest;
	FTestPackage::FWritten Written = WriteSmall("5.7");
	Written.Patch("Ue5", 1019);
	const FBinaryOutcome Outcome = ReadBinary(Written.Bytes);
	EXPECT_TRUE(Outcome.bRead) << Outcome.Refusal;
	EXPECT_THAT(Outcome.Findings.Warnings,
		testing::ElementsAre("the package was written by an engine newer than 5.7; what its layout adds is not known"));
	EXPECT_EQ(Outcome.Findings.NumNodesWithPins, 3);
	Written.Patch("Names.Count", 0x7FFFFFFF);
	EXPECT_THAT(ReadBinary(Written.Bytes).Refusal,
		StartsWith("the package was written by an engine newer than 5.7, and its table of names"));
}

TEST(BinaryHostile, AFileCutOffAtAnyByteIsRefused)
{
	using namespace BinaryHostileTest;
	for (const std::string Engine : {"4.13", "4.27", "5.7"})
	{
		for (const TablePackages::FTable& Table : TablePackages::All(FPackageLayout::Of(Engine)))
		{
			for (std::size_t Length = 0; Length < Table.Bytes.size(); ++Length)
			{
				ASSERT_EQ(FindFault(Table.Bytes.substr(0, Length)), "")
					<< Engine << ", " << Table.Name << ", " << Length;
			}
		}
		const FTestPackage::FWritten Written = WriteSmall(Engine);
		std::size_t NumRead = 0;
		for (std::size_t Length = 0; Length < Written.Bytes.size(); ++Length)
		{
			const std::string Part = Written.Bytes.substr(0, Length);
			ASSERT_EQ(FindFault(Part), "") << Engine << ", " << Length << " bytes";
			if (Length + 64 >= Written.Bytes.size())
			{
				const FBinaryOutcome Outcome = ReadBinary(Part);
				NumRead += Outcome.bRead ? 1 : 0;
				if (!Outcome.bRead)
				{
					continue;
				}
				EXPECT_THAT(Outcome.Findings.Warnings, testing::ElementsAre(HasSubstr("does not end as one")));
			}
		}
		// Behind the objects stand bytes that nothing here needs.
		EXPECT_LE(NumRead, 32u) << Engine;
	}
}

TEST(BinaryHostile, RandomChangesAreToldOrRead)
{
	using namespace BinaryHostileTest;
	std::vector<std::string> Files;
	for (const std::string Engine : {"4.13", "4.27", "5.1", "5.7"})
	{
		for (const SmallBlueprint::FExtra Extra : BinaryTestValues::All())
		{
			Files.push_back(WriteSmall(Engine, Extra).Bytes);
		}
		for (const TablePackages::FTable& Table : TablePackages::All(FPackageLayout::Of(Engine)))
		{
			Files.push_back(Table.Bytes);
		}
	}
	std::mt19937 Random(20);
	const int NumChanges = GetNumChanges();
	for (int Round = 0; Round < NumChanges; ++Round)
	{
		const std::size_t File = static_cast<std::size_t>(Round) % Files.size();
		std::string Bytes = Files[File];
		for (uint32_t Count = 1 + Random() % 3; Count > 0 && !Bytes.empty(); --Count)
		{
			Change(Bytes, Random);
		}
		const std::string Fault = FindFault(Bytes);
		if (!Fault.empty())
		{
			std::ofstream("/tmp/morvane-binary-fault.uasset", std::ios::binary) << Bytes;
			FAIL() << "round " << Round << ": " << Fault << " (kept as /tmp/morvane-binary-fault.uasset)";
		}
	}
}

namespace BinaryHostileTest
{
static const std::string LongName(1000, 'N');

/** Thousands of rows that share one long name. */
static std::string ManyLongImports()
{
	FTestPackage Package = SmallBlueprint::Make(FPackageLayout::Of("5.7"));
	for (int Index = 0; Index < 10000; ++Index)
	{
		Package.AddImport(LongName, LongName, -1, LongName);
	}
	return Package.Write().Bytes;
}

/** Objects in objects, each path as long as all names above it. */
static std::string DeepObjects()
{
	FTestPackage Package = SmallBlueprint::Make(FPackageLayout::Of("5.7"));
	int32_t Outer = SmallBlueprint::Graph;
	for (int Index = 0; Index < 4000; ++Index)
	{
		const int32_t Made = Package.AddExport(-1, Outer, LongName);
		Outer = Index % 60 == 59 ? SmallBlueprint::Graph : Made;
	}
	return Package.Write().Bytes;
}

static std::string ObjectsInACircle()
{
	FTestPackage Package = SmallBlueprint::Make(FPackageLayout::Of("5.7"));
	Package.AddExport(-1, 8, "First");
	Package.AddExport(-1, 7, "Second");
	return Package.Write().Bytes;
}

static std::string LongReferences()
{
	return WriteSmall("5.7",
		[](FTestPackage& Package, FObjectBytes& Out)
		{
			FByteWriter Value;
			constexpr int32_t Count = 60000;
			const int32_t Long = Package.AddImport("/Script/CoreUObject", "Object", 0, LongName);
			Value.Int(Count);
			for (int32_t Index = 0; Index < Count; ++Index)
			{
				Value.Int(Long);
			}
			Out.Tag("Many", {"ArrayProperty", {{"ObjectProperty", {}}}}, Value.Bytes);
		})
		.Bytes;
}

/** A text whose pattern asks for its long argument thousands of times, within a text of the kind. */
static std::string TextBomb()
{
	return WriteSmall("5.7",
		[](FTestPackage& Package, FObjectBytes& Out)
		{
			std::string Pattern;
			for (int Index = 0; Index < 20000; ++Index)
			{
				Pattern += "{A}";
			}
			FObjectBytes Inner(Package);
			Inner.BaseText("", "K", std::string(100000, 'x'));
			std::string Value = Inner.Bytes;
			for (int Depth = 0; Depth < 10; ++Depth)
			{
				FObjectBytes Text(Package);
				Text.Put<uint32_t>(0);
				Text.Byte(1);
				Text.BaseText("", "K", Pattern);
				Text.Int(1);
				Text.Text("A");
				Text.Byte(4);
				Text.Raw(Value);
				Value = Text.Bytes;
			}
			Out.Tag("Bomb", {"TextProperty", {}}, Value);
		})
		.Bytes;
}

/** Structs in structs, each with a byte too many, so that each looks as if it had to be read in another way. */
static std::string DeepStructs(const char* const Struct)
{
	static const char* Name;
	Name = Struct;
	return WriteSmall("5.7",
		[](FTestPackage& Package, FObjectBytes& Out)
		{
			std::string Value;
			for (int Depth = 0; Depth < 400; ++Depth)
			{
				FObjectBytes Level(Package);
				if (Depth > 0)
				{
					Level.Tag("In", {"StructProperty", {{Name, {}}}}, Value);
				}
				Level.EndTags();
				Level.Byte(0);
				Value = Level.Bytes;
			}
			Out.Tag("Deep", {"StructProperty", {{Name, {}}}}, Value);
		})
		.Bytes;
}

static FTypeTree DeepType(const int Depth)
{
	return Depth == 0 ? FTypeTree{"IntProperty", {}} : FTypeTree{"ArrayProperty", {DeepType(Depth - 1)}};
}

static std::string DeepTypes()
{
	return WriteSmall("5.7", [](FTestPackage&, FObjectBytes& Out) { Out.Tag("Deep", DeepType(5000), "\1\0\0\0"); })
		.Bytes;
}

/** Elements that take no bytes. */
static std::string EmptyElements()
{
	return WriteSmall("4.27",
		[](FTestPackage& Package, FObjectBytes& Out)
		{
			FObjectBytes Value(Package);
			Value.Int(0x7FFFFFFF);
			Value.Name("Out");
			Out.Tag("Empty", {"ArrayProperty", {{"Nothing", {}}}}, Value.Bytes);
			Out.Tag("Texts", {"ArrayProperty", {{"TextProperty", {}}}}, Value.Bytes);
		})
		.Bytes;
}
} // namespace BinaryHostileTest

TEST(BinaryHostile, MemoryAndTimeAreBoundedByTheSizeOfTheFile)
{
	using namespace BinaryHostileTest;
	const struct
	{
		const char* Label;
		std::string Bytes;
	} Rows[] = {{"imports with long names", ManyLongImports()}, {"deep objects", DeepObjects()},
		{"a circle", ObjectsInACircle()}, {"long references", LongReferences()}, {"text of texts", TextBomb()},
		{"deep structs", DeepStructs("SomeStruct")}, {"deep structs of known form", DeepStructs("Vector")},
		{"deep types", DeepTypes()}, {"empty elements", EmptyElements()}};
	for (const auto& Row : Rows)
	{
		// Text, its tree and the tables: some ten times the text's own limit.
		const std::size_t Bound = Row.Bytes.size() * 160 + 128 * 1024 * 1024;
		EXPECT_EQ(ReadWithin(Row.Bytes, Bound, 30), "") << Row.Label << ", " << Row.Bytes.size() << " bytes";
	}
}

TEST(BinaryHostile, RowsThatAreNotThereAreLeftOut)
{
	using namespace BinaryHostileTest;
	for (const int32_t Count : {2, 1000, 0x7FFFFFFF, -1})
	{
		FTestPackage Package = TablePackages::DataTable(FPackageLayout::Of("5.7"), Count);
		const FBinaryOutcome Outcome = ReadBinary(Package.Write().Bytes, "/Game/DT_Swords");
		EXPECT_TRUE(Outcome.bRead) << Outcome.Refusal;
		EXPECT_EQ(Outcome.Findings.LeftOut.size(), Count == 2 ? 0u : 1u) << Count;
		EXPECT_THAT(Outcome.Body, AnyOf(HasSubstr("RowStruct="), HasSubstr("CustomProperties Row")));
	}
}

TEST(BinaryHostile, ObjectsThatHoldEachOtherAreCounted)
{
	using namespace BinaryHostileTest;
	const FBinaryOutcome Outcome = ReadBinary(ObjectsInACircle());
	EXPECT_TRUE(Outcome.bRead) << Outcome.Refusal;
	EXPECT_THAT(Outcome.Findings.Warnings,
		testing::ElementsAre("2 objects are left out: what holds them holds itself, or is nested too deep"));
}

TEST(BinaryHostile, OneSidedLinksAreTold)
{
	using namespace BinaryHostileTest;
	FTestPackage Package = SmallBlueprint::Make(FPackageLayout::Of("5.7"));
	FObjectBytes Native(Package);
	Native.Bool(false);
	Native.Int(0);
	FObjectBytes Properties(Package);
	Properties.EndTags();
	Package.SetBytes(SmallBlueprint::Cast, Properties.Bytes, Native.Bytes);
	const FBinaryOutcome Outcome = ReadBinary(Package.Write().Bytes);
	EXPECT_THAT(Outcome.Findings.Warnings, testing::ElementsAre("1 link is known to one of its pins only"));
}
