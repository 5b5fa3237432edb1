#include "ToolFace/ResultCut.h"

#include <algorithm>
#include <vector>

#include "Standalone/JsonUtf8.h"
#include "Support/JsonFields.h"
#include "Support/JsonText.h"

namespace ResultCutPrivate
{
/** What a note of what is missing may take. */
constexpr std::size_t NoteRoom = 80;
/** Too little for anything but a note. */
constexpr std::size_t LeastRoom = 200;

static bool IsBlank(const char Byte)
{
	return Byte == ' ' || Byte == '\t' || Byte == '\r' || Byte == '\n';
}

static std::size_t SkipBlanks(const std::string_view Text, std::size_t At)
{
	while (At < Text.size() && IsBlank(Text[At]))
	{
		++At;
	}
	return At;
}

/** Behind the string that begins at a place. */
static std::size_t EndOfString(const std::string_view Text, std::size_t At)
{
	for (++At; At < Text.size() && Text[At] != '"'; ++At)
	{
		At += Text[At] == '\\' ? 1 : 0;
	}
	return std::min(At + 1, Text.size());
}

/** Behind the value that begins at a place of valid JSON. */
static std::size_t EndOfValue(const std::string_view Text, std::size_t At)
{
	int Depth = 0;
	while (At < Text.size())
	{
		const char Byte = Text[At];
		if (Byte == '"')
		{
			At = EndOfString(Text, At);
		}
		else if (Byte == '{' || Byte == '[')
		{
			++Depth;
			++At;
		}
		else if (Byte == '}' || Byte == ']')
		{
			if (Depth == 0)
			{
				return At;
			}
			--Depth;
			++At;
		}
		else if (Depth == 0 && (Byte == ',' || Byte == ':' || IsBlank(Byte)))
		{
			return At;
		}
		else
		{
			++At;
			continue;
		}
		if (Depth == 0)
		{
			return At;
		}
	}
	return At;
}

struct FMember
{
	/** With its quotes; empty in a list. */
	std::string_view Name;
	std::string_view Value;

	std::size_t Size() const { return Name.size() + Value.size() + 2; }
};

/** The members or elements of a container. */
static std::vector<FMember> Split(const std::string_view Container)
{
	std::vector<FMember> Members;
	const bool bObject = Container.front() == '{';
	std::size_t At = SkipBlanks(Container, 1);
	while (At + 1 < Container.size())
	{
		FMember Member;
		if (bObject)
		{
			const std::size_t End = EndOfString(Container, At);
			Member.Name = Container.substr(At, End - At);
			At = SkipBlanks(Container, SkipBlanks(Container, End) + 1);
		}
		const std::size_t End = EndOfValue(Container, At);
		Member.Value = Container.substr(At, End - At);
		Members.push_back(Member);
		At = SkipBlanks(Container, End);
		At = SkipBlanks(Container, At + 1);
	}
	return Members;
}

std::string Cut(std::string_view Value, std::size_t Room);

static std::string CutPlainText(const std::string& Text, const std::size_t Room)
{
	std::size_t Kept = std::min(Text.size(), Room / 2);
	while (Kept > 0 && (static_cast<unsigned char>(Text[Kept]) & 0xC0) == 0x80)
	{
		--Kept;
	}
	return JsonText::Quote(Text.substr(0, Kept) + "... (" + std::to_string(Text.size() - Kept) + " more bytes)");
}

/** A document in a text keeps its form, so that what is left of it can be read. */
static std::string CutText(const std::string_view Quoted, const std::size_t Room)
{
	const std::string Text = JsonRaw::DecodeString(Quoted).value_or(std::string());
	const bool bMayBeDocument = !Text.empty() && (Text.front() == '{' || Text.front() == '[');
	std::string Ignored;
	if (!bMayBeDocument || !JsonUtf8::Check(Text, Ignored))
	{
		return CutPlainText(Text, Room);
	}
	// Quotes are escaped in a text; how many there are is known afterwards only.
	std::string Short;
	for (std::size_t Inner = Room * 4 / 5; Inner > LeastRoom; Inner = Inner * 3 / 4)
	{
		Short = JsonText::Quote(Cut(Text, Inner));
		if (Short.size() <= Room)
		{
			return Short;
		}
	}
	return CutPlainText(Text, Room);
}

static std::string CutList(const std::string_view List, const std::size_t Room)
{
	const std::vector<FMember> Entries = Split(List);
	std::string Out = "[";
	std::size_t Shown = 0;
	for (; Shown < Entries.size(); ++Shown)
	{
		const std::size_t Left = Room > Out.size() + NoteRoom ? Room - Out.size() - NoteRoom : 0;
		if (Entries[Shown].Size() > Left)
		{
			// The first entry is shown in part rather than none of them.
			if (Shown == 0 && Left > LeastRoom)
			{
				Out += Cut(Entries[Shown++].Value, Left);
			}
			break;
		}
		Out.append(Shown > 0 ? "," : "").append(Entries[Shown].Value);
	}
	if (Shown < Entries.size())
	{
		const std::string Note = std::to_string(Entries.size() - Shown) + " more entries are not shown";
		const bool bOfTexts = Entries.front().Value.front() == '"';
		Out += Shown > 0 ? "," : "";
		Out += bOfTexts ? JsonText::Quote(Note) : "{\"cut\":" + JsonText::Quote(Note) + "}";
	}
	return Out + "]";
}

/** How much of a room each may have when nobody gets more than it needs. */
static std::size_t FairShare(const std::vector<FMember>& Members, std::size_t Room)
{
	std::vector<std::size_t> Sizes;
	for (const FMember& Member : Members)
	{
		Sizes.push_back(Member.Size());
	}
	std::sort(Sizes.begin(), Sizes.end());
	for (std::size_t Index = 0; Index < Sizes.size(); ++Index)
	{
		const std::size_t Share = Room / (Sizes.size() - Index);
		if (Sizes[Index] > Share)
		{
			return Share;
		}
		Room -= Sizes[Index];
	}
	return Room;
}

static std::string Join(const std::vector<FMember>& Members, const std::size_t Share, const char Open, const char Close)
{
	std::string Out(1, Open);
	for (const FMember& Member : Members)
	{
		Out.append(Out.size() > 1 ? "," : "").append(Member.Name).append(Member.Name.empty() ? "" : ":");
		const std::size_t Room = Share > Member.Name.size() + 2 ? Share - Member.Name.size() - 2 : 0;
		Out += Cut(Member.Value, Room);
	}
	return Out + Close;
}

static std::string CutObject(const std::string_view Object, const std::size_t Room)
{
	const std::vector<FMember> Members = Split(Object);
	const std::size_t Share = FairShare(Members, Room);
	// Thousands of members, each of which would be cut to nothing: some whole ones say more.
	if (Share >= LeastRoom || Members.size() < 20)
	{
		return Join(Members, Share, '{', '}');
	}
	std::string Out = "{";
	std::size_t Shown = 0;
	for (; Shown < Members.size() && Out.size() + Members[Shown].Size() + NoteRoom < Room; ++Shown)
	{
		Out.append(Shown > 0 ? "," : "").append(Members[Shown].Name).append(":").append(Members[Shown].Value);
	}
	const std::string Note = std::to_string(Members.size() - Shown) + " more members are not shown";
	return Out.append(Shown > 0 ? "," : "").append("\"cut\":").append(JsonText::Quote(Note)).append("}");
}

std::string Cut(const std::string_view Value, const std::size_t Room)
{
	if (Value.size() <= Room || Value.empty())
	{
		return std::string(Value);
	}
	switch (Value.front())
	{
	case '{':
		return CutObject(Value, Room);
	case '[':
		return CutList(Value, Room);
	case '"':
		return CutText(Value, Room);
	default:
		return std::string(Value);
	}
}

/** Each change stays named, with the tool and the arguments that read it; the contents share what room is left. */
static std::string CutModifications(const std::string_view List, const std::size_t Room)
{
	const std::vector<FMember> Entries = Split(List);
	const std::size_t Share = FairShare(Entries, Room);
	return Share >= LeastRoom ? Join(Entries, Share, '[', ']') : CutList(List, Room);
}

static std::string Note(const std::size_t NumBytes)
{
	return R"("cut":)"
		+ JsonText::Quote("The whole result has " + std::to_string(NumBytes)
			+ " bytes, more than fit into one answer. Everything that it tells of was done. Where something is left out "
			  "it says so in its place; to read it, ask for single functions, events, variables, components or "
			  "widgets by name, or run the tool from the command line.");
}
} // namespace ResultCutPrivate

std::string ResultCut::Shorten(const std::string_view ResultJson, const std::size_t MaxBytes)
{
	using namespace ResultCutPrivate;
	if (ResultJson.size() <= MaxBytes)
	{
		return std::string(ResultJson);
	}
	const std::string Said = Note(ResultJson.size());
	std::vector<FMember> Members = Split(ResultJson);
	const std::size_t Share = FairShare(
		Members, MaxBytes > Said.size() + NoteRoom ? MaxBytes - Said.size() - NoteRoom : 0);
	std::string Out = "{";
	for (const FMember& Member : Members)
	{
		Out.append(Member.Name).append(":");
		const std::size_t Room = Share > Member.Name.size() + 2 ? Share - Member.Name.size() - 2 : 0;
		const bool bChanges = Member.Name == "\"modifications\"" && Member.Value.size() > Room;
		Out.append(bChanges ? CutModifications(Member.Value, Room) : Cut(Member.Value, Room)).append(",");
	}
	return Out.append(Said).append("}");
}
