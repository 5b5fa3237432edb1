#pragma once

/** How property text is written or read. The values are the engine's. */
enum EPropertyPortFlags : unsigned int
{
	PPF_None = 0x00000000,
	/** Strings in quotes: values inside structs and lists. */
	PPF_Delimited = 0x00000002,
	PPF_ExportsNotFullyQualified = 0x00000200,
	PPF_Copy = 0x00000001,
	/** Object references as bare paths. */
	PPF_SimpleObjectText = 0x00000400,
	PPF_PropertyWindow = 0x00000800,
	/** Write struct members that equal the default too. */
	PPF_IncludeTransient = 0x00001000,
	PPF_SerializedAsImportText = 0x00002000,
	PPF_BlueprintDebugView = 0x00080000,
	PPF_ExternalEditor = 0x00020000,
	/** Ours: real numbers with as many digits as they need to read back the same, as files have them. */
	PPF_ExactNumbers = 0x40000000,
};
