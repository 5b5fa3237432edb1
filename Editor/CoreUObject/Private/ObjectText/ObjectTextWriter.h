#pragma once

#include "Standalone/ObjectText.h"
#include "UObject/Object.h"

#include <string>
#include <unordered_map>

/** Writes one run of objects into a buffer in UTF-8. Nested objects are declared first, so that a reader can resolve
 * references to them, and filled after that. */
class FObjectTextWriter
{
public:
	FObjectTextWriter(const FObjectTextExport& InOptions, std::string& InOut);

	bool ShouldWrite(const UObject& Object) const;
	/** False leaves half an object in the buffer, and GetError tells why. */
	bool WriteRoot(UObject& Object);
	/** An outermost object that is known as text only. */
	void WriteKept(std::string_view Text);
	void WriteRecord(const FObjectTextRecord& Record);
	const FString& GetError() const { return Error; }

	/** One line as it was read, without indent and line break. */
	static void AppendLine(std::string& OutText, const FObjectTextLine& Line);

private:
	void Indent(int32 Level);
	void Footer(int32 Level);
	void Header(const UObject& Object, int32 Level, bool bDeclare, bool bWithPath);
	void QuotedName(FName Name);
	void Flags(EObjectFlags Set);
	const std::string& ClassPathOf(const UClass* Class);
	bool Declarations(const UObject& Object, int32 Level);
	bool Body(UObject& Object, int32 Level);
	bool Properties(UObject& Object, int32 Level);
	bool WriteProperty(UObject& Object, const FProperty& Property, const void* Value, const void* Default, int32 Level);
	bool PropertyLine(UObject& Object, const FProperty& Named, const FProperty& Property, const void* Value,
		const void* Default, int32 Index, int32 Level);
	void LineStart(const FProperty& Property, int32 Index, int32 Level);
	/** What was read and not understood for a value that is still as it was then; null for every other. */
	const std::string* FindUnread(
		UObject& Object, const FProperty& Named, const FProperty& Property, const void* Value, int32 Index);
	bool CustomProperties(UObject& Object, int32 Level);
	void ForEachKept(const UObject& Object, TFunctionRef<void(const FObjectTextRecord&)> Visit);
	void RecordHeader(const FObjectTextRecord& Record, int32 Level, bool bDeclare);
	void RecordDeclarations(const FObjectTextRecord& Record, int32 Level);
	void RecordBody(const FObjectTextRecord& Record, int32 Level);

	const FObjectTextExport Options;
	std::string& Out;
	FString Error;
	/** Reused for every value. */
	FString Scratch;
	std::unordered_map<const UClass*, std::string> ClassPaths;
};
