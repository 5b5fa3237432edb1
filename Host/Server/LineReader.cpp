#include "Server/LineReader.h"

#include <utility>

namespace LineReaderPrivate
{
/** A line buffer that grew beyond this is given back once its line is done. */
constexpr size_t KeptCapacity = 1u << 20;
} // namespace LineReaderPrivate

FLineReader::FLineReader(const size_t InMaxLine, FOnLine InOnLine, FOnTooLong InOnTooLong, FOnSkipped InOnSkipped)
	: MaxLine(InMaxLine)
	, OnLine(std::move(InOnLine))
	, OnTooLong(std::move(InOnTooLong))
	, OnSkipped(std::move(InOnSkipped))
{
}

void FLineReader::Feed(const std::string_view Bytes)
{
	for (size_t Start = 0; Start < Bytes.size();)
	{
		const size_t End = Bytes.find('\n', Start);
		if (End == std::string_view::npos)
		{
			Append(Bytes.substr(Start));
			return;
		}
		Append(Bytes.substr(Start, End - Start));
		EndLine();
		Start = End + 1;
	}
}

void FLineReader::Finish()
{
	EndLine();
}

void FLineReader::Append(const std::string_view Part)
{
	if (bTooLong)
	{
		Skip(Part);
		return;
	}
	if (Line.size() + Part.size() > MaxLine)
	{
		bTooLong = true;
		Skip(Line);
		Skip(Part);
		Line = std::string();
		return;
	}
	Line += Part;
}

void FLineReader::Skip(const std::string_view Part) const
{
	if (OnSkipped)
	{
		OnSkipped(Part);
	}
}

void FLineReader::EndLine()
{
	if (std::exchange(bTooLong, false))
	{
		OnTooLong();
		return;
	}
	const std::string_view Content = std::string_view(Line).substr(0, Line.find_last_not_of(" \t\r") + 1);
	if (!Content.empty())
	{
		OnLine(Content);
	}
	Line.clear();
	if (Line.capacity() > LineReaderPrivate::KeptCapacity)
	{
		Line = std::string();
	}
}
