#include "BinaryPackage/BinaryPackageText.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "BinaryPackage/BinaryPins.h"
#include "BinaryPackage/BinaryProperties.h"
#include "BinaryPackage/BinaryStructs.h"
#include "BinaryPackage/BinaryTableData.h"
#include "BinaryPackage/BinaryTables.h"
#include "BinaryPackage/BinaryText.h"
#include "Containers/StringConv.h"
#include "ObjectText/ObjectTextSyntax.h"
#include "Standalone/PackageText.h"

namespace BinaryPackageText
{
/** The class that the editor noted, where the file lies now: it may have been moved or copied since. */
static FString PathOfClass(const std::string& Noted, const FPackageText::FHeader& Header)
{
	const std::string Kind = Noted.substr(0, Noted.find('\'') + 1);
	const FString Path = Header.PackageName + TEXT(".") + Header.AssetName + TEXT("_C");
	return Kind.empty() ? Path : FromUtf8(Kind) + Path + TEXT("'");
}

/** The tags that the editor's registry keeps of the asset, those that ours knows too. */
static void ReadRegistryTags(const FBinaryTables& Tables, const std::string_view Bytes, FPackageText::FHeader& Header)
{
	FBinaryCursor Cursor(Bytes);
	const int32_t Offset = Tables.GetSummary().RegistryOffset;
	Cursor.Seek(static_cast<std::size_t>(Offset > 0 ? Offset : -1));
	Cursor.Skip(Tables.GetVersions().Ue4 >= 519 ? 8 : 0);
	static const std::set<std::string> Known = {"ParentClass", "NativeParentClass", "BlueprintType"};
	for (int32_t NumAssets = Cursor.ReadCount(12); NumAssets > 0 && !Cursor.HasFailed(); --NumAssets)
	{
		const std::string Name = Cursor.ReadString();
		const bool bAsset = FBinaryTables::EqualsIgnoringCase(
			std::string_view(Name).substr(Name.rfind('.') + 1), Tables.GetRecordedName());
		Cursor.ReadString();
		for (int32_t NumTags = Cursor.ReadCount(8); NumTags > 0 && !Cursor.HasFailed(); --NumTags)
		{
			const std::string Tag = Cursor.ReadString();
			const std::string Value = Cursor.ReadString();
			if (bAsset && Known.contains(Tag) && Value != "None")
			{
				Header.Tags.Add({FName(FromUtf8(Tag)), FromUtf8(Value)});
			}
			else if (bAsset && Tag == "GeneratedClass" && Value != "None")
			{
				Header.Tags.Add({FName(FromUtf8(Tag)), PathOfClass(Value, Header)});
			}
		}
	}
}

/**
 * What a Blueprint declares by name, as far as the names of its objects tell it: functions of its class that override
 * nothing, dispatchers, graphs that may be macros. So menus offer its members without reading one of its objects.
 */
static void TellMemberNames(const FBinaryTables& Tables, const int32_t Asset, FPackageText::FHeader& Header)
{
	if (!Header.AssetClassPath.EndsWith(TEXT("Blueprint")))
	{
		return;
	}
	Header.Tags.Add({TEXT("MemberNames"), TEXT("1")});
	const std::vector<FBinaryExport>& Exports = Tables.GetExports();
	constexpr std::string_view Template = "_GEN_VARIABLE";
	// Templates may be of a parent's components then, which the parent offers.
	const bool bChangesInherited = std::any_of(Exports.begin(), Exports.end(),
		[](const FBinaryExport& Export) { return Export.Name == "InheritableComponentHandler"; });
	for (std::size_t Index = 0; Index < Exports.size(); ++Index)
	{
		const FBinaryExport& Export = Exports[Index];
		const std::string Class = Tables.ClassPathOf(static_cast<int32_t>(Index) + 1);
		const bool bOfClass = Export.Outer > 0 && Tables.ClassPathOf(Export.Outer).ends_with("GeneratedClass");
		constexpr std::string_view Signature = "__DelegateSignature";
		if (bOfClass && Class == "/Script/CoreUObject.DelegateFunction" && Export.Name.ends_with(Signature))
		{
			Header.Tags.Add({TEXT("Dispatchers"),
				FromUtf8(std::string_view(Export.Name).substr(0, Export.Name.size() - Signature.size()))});
		}
		// What the compiler makes for itself has a name with two strokes, or one of these.
		else if (bOfClass && Class == "/Script/CoreUObject.Function" && Export.Super == 0
			&& Export.Name.find("__") == std::string::npos && !Export.Name.starts_with("ExecuteUbergraph")
			&& Export.Name != "UserConstructionScript")
		{
			Header.Tags.Add({TEXT("Functions"), FromUtf8(Export.Name)});
		}
		else if (bOfClass && (Export.Flags & BinaryFlagTemplate) != 0 && Export.Name.ends_with(Template)
			&& Export.Name != "DefaultSceneRoot_GEN_VARIABLE" && !bChangesInherited)
		{
			Header.Tags.Add({TEXT("Components"),
				FromUtf8(std::string_view(Export.Name).substr(0, Export.Name.size() - Template.size()))});
		}
		else if (Export.Outer == Asset && Class == "/Script/Engine.EdGraph")
		{
			Header.Tags.Add({TEXT("Graphs"), FromUtf8(Export.Name)});
		}
	}
}

static bool MakeHeader(const FBinaryTables& Tables, const std::string_view Bytes, const std::string& PackageName,
	FPackageText::FHeader& OutHeader, std::string& OutRefusal)
{
	const int32_t Asset = Tables.GetAsset();
	if (Asset == 0)
	{
		OutRefusal = "the package holds no asset";
		return false;
	}
	OutHeader.PackageName = FromUtf8(PackageName);
	OutHeader.AssetName = FromUtf8(Tables.GetExports()[static_cast<std::size_t>(Asset) - 1].Name);
	OutHeader.AssetClassPath = FromUtf8(Tables.ClassPathOf(Asset));
	ReadRegistryTags(Tables, Bytes, OutHeader);
	return true;
}

static std::string Unquote(const std::string& Value)
{
	return Value.size() >= 2 && Value.front() == '"' ? Value.substr(1, Value.size() - 2) : Value;
}

/** Writes the objects of one binary package as text, each where its outer holds it. */
class FWriter
{
public:
	FWriter(const FBinaryTables& InTables, FBinaryPackageFindings& InFindings)
		: Tables(InTables)
		, Findings(InFindings)
		, Properties(InTables)
	{
		const std::vector<FBinaryExport>& Exports = Tables.GetExports();
		Children.resize(Exports.size() + 1);
		for (std::size_t Index = 0; Index < Exports.size(); ++Index)
		{
			const int32_t Outer = Exports[Index].Outer;
			const bool bKnown = Outer >= 0 && static_cast<std::size_t>(Outer) <= Exports.size();
			Children[bKnown ? static_cast<std::size_t>(Outer) : 0].push_back(static_cast<int32_t>(Index) + 1);
		}
	}

	std::string WriteAll()
	{
		for (const int32_t Reference : Children[0])
		{
			Write(Reference, 0);
		}
		const std::size_t NumLost = Tables.GetExports().size() - NumSeen;
		if (NumLost > 0)
		{
			WarnOfFile(
				std::to_string(NumLost) + " objects are left out: what holds them holds itself, or is nested too deep");
		}
		if (IsFull())
		{
			WarnOfFile("the text of the package is cut off: it is longer than a file of its size can mean");
		}
		CheckLinks();
		if (NumWarnings > MaxWarnings)
		{
			Findings.Warnings.push_back(std::to_string(NumWarnings - MaxWarnings) + " more warnings of the kind");
		}
		return std::move(Body);
	}

	/** What the properties of the asset say of its class, by the names of registry tags. */
	const std::map<std::string, std::string>& GetAssetTags() const { return AssetTags; }

private:
	const FBinaryExport& ExportAt(int32_t Reference) const
	{
		return Tables.GetExports()[static_cast<std::size_t>(Reference) - 1];
	}

	/** Functions, and the fields of old classes, are made anew by the compiler; the copy of a widget tree inside a
	 * class is made with it. */
	bool IsLeftOut(const int32_t Reference) const
	{
		const std::string Class = Tables.ClassPathOf(Reference);
		const std::string_view Core = "/Script/CoreUObject.";
		const bool bField = Class.starts_with(Core) && (Class.ends_with("Function") || Class.ends_with("Property"));
		const bool bInClass = ExportAt(Reference).Outer > 0 && IsClass(ExportAt(Reference).Outer);
		return bField || Class == "/Script/CoreUObject.MetaData" || Class == "/Script/Engine.AssetImportData"
			|| (bInClass && Class == "/Script/UMG.WidgetTree");
	}

	bool IsClass(const int32_t Reference) const { return Tables.ClassPathOf(Reference).ends_with("GeneratedClass"); }

	/** Told by name, since the class may be one of a plug-in that is not at hand. */
	bool IsGraph(const int32_t Reference) const
	{
		const std::string Class = Tables.ClassPathOf(Reference);
		const std::string Name = Class.substr(Class.rfind('.') + 1);
		return Name.ends_with("Graph") && !Name.starts_with("RigVM") && Name.find("Node") == std::string::npos;
	}

	bool IsNode(const int32_t Reference) const
	{
		const int32_t Outer = ExportAt(Reference).Outer;
		return Outer > 0 && IsGraph(Outer) && !IsGraph(Reference) && !Tables.ClassPathOf(Reference).ends_with("Schema");
	}

	void Line(const int Depth, const std::string& Text)
	{
		Body.append(static_cast<std::size_t>(Depth) * 3, ' ').append(Text).push_back('\n');
	}

	/** A damaged file has one for each value; the first ones tell enough. */
	void WarnOfFile(const std::string& Text)
	{
		if (++NumWarnings <= MaxWarnings)
		{
			Findings.Warnings.push_back(Text);
		}
	}

	void Warn(const int32_t Reference, const std::string& Text) { WarnOfFile(Tables.PathOf(Reference) + ": " + Text); }

	bool IsFull() const { return Body.size() > Tables.GetTextLimit(); }

	std::size_t CountBelow(const int32_t Reference, const int Depth) const
	{
		std::size_t Count = 1;
		for (const int32_t Child : Children[static_cast<std::size_t>(Reference)])
		{
			Count += Depth < MaxDepth ? CountBelow(Child, Depth + 1) : 0;
		}
		return Count;
	}

	static constexpr int MaxDepth = 64;
	static constexpr std::size_t MaxWarnings = 1000;

	/** A folder of an author may bear a name with blanks. */
	static std::string SpellClass(const std::string& Path)
	{
		const bool bPlain = ObjectTextParsing::FieldLength(Path) == Path.size();
		return Path.empty() ? "None" : bPlain ? Path : BinaryText::Quote(Path);
	}

	static std::string FlagWords(const uint32_t Flags)
	{
		std::string Words;
		const std::pair<uint32_t, const char*> Known[] = {{BinaryFlagPublic, "Public"},
			{BinaryFlagStandalone, "Standalone"}, {BinaryFlagDefaultObject | BinaryFlagTemplate, "Archetype"}};
		for (const auto& [Bits, Word] : Known)
		{
			Words += (Flags & Bits) == 0 ? "" : (Words.empty() ? " Flags=" : "|") + std::string(Word);
		}
		return Words;
	}

	void Write(const int32_t Reference, const int Depth)
	{
		if (Depth > MaxDepth || IsFull())
		{
			return;
		}
		if (IsLeftOut(Reference))
		{
			NumSeen += CountBelow(Reference, Depth);
			return;
		}
		++NumSeen;
		const FBinaryExport& Export = ExportAt(Reference);
		Line(Depth,
			"Begin Object Class=" + SpellClass(Tables.ClassPathOf(Reference))
				+ " Name=" + BinaryText::Quote(Export.Name.empty() ? "None" : Export.Name) + FlagWords(Export.Flags));
		for (const int32_t Child : Children[static_cast<std::size_t>(Reference)])
		{
			Write(Child, Depth + 1);
		}
		if (!IsClass(Reference))
		{
			WriteOwn(Reference, Depth + 1);
		}
		Line(Depth, "End Object");
	}

	/** Properties, and the pins of a node. */
	void WriteOwn(const int32_t Reference, const int Depth)
	{
		const FBinaryExport& Export = ExportAt(Reference);
		const std::string_view Bytes = Tables.BytesOf(Export);
		if (Bytes.empty() && Export.Size != 0)
		{
			Warn(Reference, "its bytes lie outside of the file");
			return;
		}
		FBinaryCursor Cursor(Bytes);
		BinaryTableData::SeekProperties(Cursor, Tables, Export);
		std::vector<FBinaryProperty> Own;
		if (!Properties.Read(Cursor, Own))
		{
			Warn(Reference,
				"its properties break off at byte "
					+ std::to_string(static_cast<uint64_t>(Export.Offset) + Cursor.GetPosition()) + " of the file");
		}
		const std::string Class = Tables.ClassPathOf(Reference);
		std::vector<std::string> TableLines;
		if (Class == "/Script/Engine.UserDefinedEnum")
		{
			SkipObjectGuid(Cursor);
			BinaryTableData::SortEnumEntries(Cursor, Tables, Own);
		}
		else if (Class.ends_with("Table"))
		{
			SkipObjectGuid(Cursor);
			if (!BinaryTableData::Read(Cursor, Tables, Properties, Class, TableLines))
			{
				NoteLeftOut(Reference, "the rows");
			}
		}
		for (const std::string& Value : Properties.TakePassedOver())
		{
			NoteLeftOut(Reference, Value);
		}
		for (std::size_t Index = 0; Index < Own.size(); ++Index)
		{
			// The first element of a static array looks like any other value; the next ones tell.
			const bool bFirstOfSeveral = Index + 1 < Own.size() && Own[Index + 1].Index > 0
				&& Own[Index + 1].Name == Own[Index].Name;
			WriteProperty(Reference, Own[Index], Own[Index].Index > 0 || bFirstOfSeveral, Depth);
		}
		for (const std::string& Row : TableLines)
		{
			Line(Depth, Row);
		}
		if (IsNode(Reference))
		{
			WriteNode(Reference, Cursor, Depth);
		}
	}

	void NoteLeftOut(const int32_t Reference, const std::string& Value)
	{
		if (Findings.LeftOut.size() < MaxWarnings)
		{
			Findings.LeftOut.push_back({Tables.PathOf(Reference), Value});
		}
	}

	/** What stands between an object's properties and what its class writes itself. */
	static void SkipObjectGuid(FBinaryCursor& Cursor)
	{
		if (Cursor.ReadBool())
		{
			Cursor.Skip(16);
		}
	}

	static std::string SpellName(const std::string& Name)
	{
		return Name.empty() || Name.front() == '"' || ObjectTextParsing::NeedsQuotes(Name) ? BinaryText::Quote(Name)
																						   : Name;
	}

	void WriteProperty(const int32_t Reference, const FBinaryProperty& Property, const bool bIndexed, const int Depth)
	{
		Line(Depth,
			SpellName(Property.Name) + (bIndexed ? "(" + std::to_string(Property.Index) + ")=" : "=") + Property.Value);
		static const std::set<std::string> Tagged = {"ParentClass", "GeneratedClass", "BlueprintType"};
		if (ExportAt(Reference).Outer == 0 && Tagged.contains(Property.Name))
		{
			AssetTags[Property.Name] = Unquote(Property.Value);
		}
	}

	void WriteNode(const int32_t Reference, FBinaryCursor& Cursor, const int Depth)
	{
		SkipObjectGuid(Cursor);
		FBinaryNodePins Node;
		++Findings.NumNodes;
		if (Node.Read(Cursor, Tables))
		{
			++Findings.NumNodesWithPins;
		}
		else
		{
			Warn(Reference, "its pins do not end where its bytes do; those that could be read are shown");
		}
		for (const FBinaryUserPin& Pin : Node.UserPins)
		{
			Line(Depth,
				"CustomProperties UserDefinedPin (PinName=" + BinaryText::Quote(Pin.Name)
					+ ",PinType=" + Pin.Type.ToText() + (Pin.bOutput ? ",DesiredPinDirection=EGPD_Output" : "")
					+ (Pin.DefaultValue.empty() ? "" : ",PinDefaultValue=" + BinaryText::Quote(Pin.DefaultValue))
					+ ")");
		}
		for (const FBinaryPin& Pin : Node.Pins)
		{
			WritePin(Reference, Pin, Depth);
		}
	}

	std::string SpellReference(const FBinaryPinReference& Reference) const
	{
		const bool bKnown = Reference.Node > 0
			&& static_cast<std::size_t>(Reference.Node) <= Tables.GetExports().size();
		return bKnown ? ExportAt(Reference.Node).Name + " " + Reference.PinId : std::string();
	}

	std::string SpellReferences(const char* Field, const std::vector<FBinaryPinReference>& References) const
	{
		std::string List;
		for (const FBinaryPinReference& Reference : References)
		{
			const std::string Text = SpellReference(Reference);
			List += Text.empty() ? Text : Text + ",";
		}
		return List.empty() ? List : std::string(Field) + "=(" + List + "),";
	}

	static std::string SpellType(const FBinaryPinType& Type)
	{
		const auto Word = [](const bool bValue) { return bValue ? "True," : "False,"; };
		return "PinType.PinCategory=" + BinaryText::Quote(Type.Category) + ",PinType.PinSubCategory="
			+ BinaryText::Quote(Type.SubCategory) + ",PinType.PinSubCategoryObject=" + Type.SubCategoryObject
			+ ",PinType.PinSubCategoryMemberReference=" + Type.MemberReference
			+ ",PinType.PinValueType=" + (Type.ValueType.empty() ? "()" : Type.ValueType)
			+ ",PinType.ContainerType=" + Type.Container + ",PinType.bIsReference=" + Word(Type.bIsReference)
			+ "PinType.bIsConst=" + Word(Type.bIsConst) + "PinType.bIsWeakPointer=" + Word(Type.bIsWeakPointer)
			+ "PinType.bIsUObjectWrapper=" + Word(Type.bIsUObjectWrapper)
			+ "PinType.bSerializeAsSinglePrecisionFloat=" + Word(Type.bSerializeAsSinglePrecisionFloat);
	}

	static std::string SpellIf(const char* Field, const bool bThere, const std::string& Value)
	{
		return bThere ? std::string(Field) + "=" + Value + "," : std::string();
	}

	void WritePin(const int32_t Node, const FBinaryPin& Pin, const int Depth)
	{
		constexpr const char* NoText = "INVTEXT(\"\")";
		std::string Text = "CustomProperties Pin (PinId=" + Pin.Id + ",PinName=" + BinaryText::Quote(Pin.Name) + ",";
		Text += SpellIf("PinFriendlyName", Pin.FriendlyName != NoText, Pin.FriendlyName);
		Text += SpellIf("SourceIndex", Pin.SourceIndex >= 0, std::to_string(Pin.SourceIndex));
		Text += SpellIf("PinToolTip", !Pin.ToolTip.empty(), BinaryText::Quote(Pin.ToolTip));
		Text += SpellIf("Direction", Pin.bOutput, "\"EGPD_Output\"");
		Text += SpellType(Pin.Type);
		Text += SpellIf("DefaultValue", !Pin.DefaultValue.empty(), BinaryText::Quote(Pin.DefaultValue));
		Text += SpellIf("AutogeneratedDefaultValue", !Pin.AutogeneratedDefaultValue.empty(),
			BinaryText::Quote(Pin.AutogeneratedDefaultValue));
		Text += SpellIf("DefaultObject", !Pin.DefaultObject.empty(), BinaryText::Quote(Pin.DefaultObject));
		Text += SpellIf("DefaultTextValue", Pin.DefaultTextValue != NoText, Pin.DefaultTextValue);
		Text += SpellReferences("LinkedTo", Pin.LinkedTo) + SpellReferences("SubPins", Pin.SubPins);
		const std::string Parent = SpellReference(Pin.ParentPin);
		Text += SpellIf("ParentPin", !Parent.empty(), Parent);
		Text += "PersistentGuid=" + Pin.PersistentGuid + ",";
		static constexpr const char* Bits[] = {"bHidden", "bNotConnectable", "bDefaultValueIsReadOnly",
			"bDefaultValueIsIgnored", "bAdvancedView", "bOrphanedPin"};
		for (std::size_t Bit = 0; Bit < std::size(Bits); ++Bit)
		{
			Text.append(Bits[Bit]).append((Pin.Bits >> Bit) & 1 ? "=True," : "=False,");
		}
		Line(Depth, Text + ")");
		++Findings.NumPins;
		for (const FBinaryPinReference& Link : Pin.LinkedTo)
		{
			Links.emplace(std::pair(Node, Pin.Id), std::pair(Link.Node, Link.PinId));
		}
	}

	/** Every link stands in both of its pins; one that does not tells of a place that was lost. */
	void CheckLinks()
	{
		std::size_t NumOneSided = 0;
		for (const auto& [From, To] : Links)
		{
			const bool bTwoSided = Links.contains({To, From});
			NumOneSided += bTwoSided ? 0 : 1;
			Findings.NumTwoSidedLinks += bTwoSided ? 1 : 0;
		}
		Findings.NumLinks = static_cast<int>(Links.size());
		if (NumOneSided > 0)
		{
			WarnOfFile(NumOneSided == 1 ? "1 link is known to one of its pins only"
										: std::to_string(NumOneSided) + " links are known to one of their pins only");
		}
	}

	using FPinKey = std::pair<int32_t, std::string>;

	const FBinaryTables& Tables;
	FBinaryPackageFindings& Findings;
	FBinaryProperties Properties;
	std::vector<std::vector<int32_t>> Children;
	/** Objects that were written, or left out on purpose. */
	std::size_t NumSeen = 0;
	std::size_t NumWarnings = 0;
	std::string Body;
	std::map<std::string, std::string> AssetTags;
	std::set<std::pair<FPinKey, FPinKey>> Links;
};
} // namespace BinaryPackageText

bool MakePackageTextOfBinary(const std::string_view Bytes, const std::string& PackageName, std::string& OutText,
	FBinaryPackageFindings& OutFindings, std::string& OutRefusal)
{
	FBinaryTables Tables;
	if (!Tables.Read(Bytes, PackageName, OutRefusal))
	{
		return false;
	}
	if (Tables.GetSummary().bNewer)
	{
		OutFindings.Warnings.push_back(
			"the package was written by an engine newer than 5.7; what its layout adds is not known");
	}
	if (!Bytes.ends_with(Bytes.substr(0, 4)))
	{
		OutFindings.Warnings.push_back(
			"the package does not end as one: it may be cut off behind its objects, which are all there");
	}
	FPackageText::FHeader Header;
	if (!BinaryPackageText::MakeHeader(Tables, Bytes, PackageName, Header, OutRefusal))
	{
		return false;
	}
	BinaryPackageText::FWriter Writer(Tables, OutFindings);
	const std::string Body = Writer.WriteAll();
	for (const auto& [Name, Value] : Writer.GetAssetTags())
	{
		if (!Header.FindTag(FName(FromUtf8(Name))))
		{
			Header.Tags.Add({FName(FromUtf8(Name)), FromUtf8(Value)});
		}
	}
	OutText = FPackageText::MakeBytes(Header, Body);
	return true;
}

std::size_t SizeOfBinaryHeader(const std::string_view Bytes)
{
	FBinarySummary Summary;
	std::string Ignored;
	return Summary.Read(Bytes, Ignored) && Summary.HeaderSize > 0 ? static_cast<std::size_t>(Summary.HeaderSize) : 0;
}

bool ReadBinaryHeader(const std::string_view Bytes, const std::string& PackageName, FPackageText::FHeader& OutHeader,
	std::string& OutRefusal)
{
	FBinaryTables Tables;
	if (!Tables.ReadHead(Bytes, PackageName, OutRefusal)
		|| !BinaryPackageText::MakeHeader(Tables, Bytes, PackageName, OutHeader, OutRefusal))
	{
		return false;
	}
	BinaryPackageText::TellMemberNames(Tables, Tables.GetAsset(), OutHeader);
	return true;
}
