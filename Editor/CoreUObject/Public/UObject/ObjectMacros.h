#pragma once

#include "CoreMinimal.h"

class UObject;
class UClass;
class UStruct;
class UScriptStruct;
class UFunction;
class UEnum;
class UPackage;
class FProperty;

/** Flags of one object. The values are the engine's, since they are part of saved text and of save arguments. */
enum EObjectFlags : uint32
{
	RF_NoFlags = 0x00000000,
	RF_Public = 0x00000001,
	RF_Standalone = 0x00000002,
	RF_MarkAsNative = 0x00000004,
	RF_Transactional = 0x00000008,
	RF_ClassDefaultObject = 0x00000010,
	RF_ArchetypeObject = 0x00000020,
	RF_Transient = 0x00000040,
	RF_NeedLoad = 0x00000400,
	RF_NeedPostLoad = 0x00001000,
	RF_WasLoaded = 0x00080000,
	RF_TextExportTransient = 0x00100000,
	RF_DefaultSubObject = 0x00040000,
	RF_Garbage = 0x40000000,
};
ENUM_CLASS_FLAGS(EObjectFlags)

/** What is saved with an object's text: flags beside these live in memory only. */
constexpr uint32 RF_Load = RF_Public | RF_Standalone | RF_Transactional | RF_ClassDefaultObject | RF_ArchetypeObject;

enum EClassFlags : uint32
{
	CLASS_None = 0x00000000,
	CLASS_Abstract = 0x00000001,
	CLASS_Transient = 0x00000008,
	CLASS_Native = 0x00000080,
	CLASS_NotPlaceable = 0x00000200,
	CLASS_EditInlineNew = 0x00001000,
	CLASS_Interface = 0x00004000,
	CLASS_Const = 0x00010000,
	CLASS_CompiledFromBlueprint = 0x00040000,
	CLASS_MinimalAPI = 0x00080000,
	CLASS_DefaultToInstanced = 0x00200000,
	CLASS_Hidden = 0x01000000,
	CLASS_Deprecated = 0x02000000,
	CLASS_NewerVersionExists = 0x80000000,
};
ENUM_CLASS_FLAGS(EClassFlags)

using EPropertyFlags = uint64;
constexpr uint64 CPF_None = 0;
constexpr uint64 CPF_Edit = 0x0000000000000001;
constexpr uint64 CPF_ConstParm = 0x0000000000000002;
constexpr uint64 CPF_BlueprintVisible = 0x0000000000000004;
constexpr uint64 CPF_ExportObject = 0x0000000000000008;
constexpr uint64 CPF_BlueprintReadOnly = 0x0000000000000010;
constexpr uint64 CPF_Net = 0x0000000000000020;
constexpr uint64 CPF_EditFixedSize = 0x0000000000000040;
constexpr uint64 CPF_Parm = 0x0000000000000080;
constexpr uint64 CPF_OutParm = 0x0000000000000100;
constexpr uint64 CPF_ZeroConstructor = 0x0000000000000200;
constexpr uint64 CPF_ReturnParm = 0x0000000000000400;
constexpr uint64 CPF_DisableEditOnTemplate = 0x0000000000000800;
constexpr uint64 CPF_Transient = 0x0000000000002000;
constexpr uint64 CPF_Config = 0x0000000000004000;
constexpr uint64 CPF_RequiredParm = 0x0000000000008000;
constexpr uint64 CPF_DisableEditOnInstance = 0x0000000000010000;
constexpr uint64 CPF_EditConst = 0x0000000000020000;
constexpr uint64 CPF_InstancedReference = 0x0000000000080000;
constexpr uint64 CPF_DuplicateTransient = 0x0000000000200000;
constexpr uint64 CPF_SaveGame = 0x0000000001000000;
constexpr uint64 CPF_NoClear = 0x0000000002000000;
constexpr uint64 CPF_ReferenceParm = 0x0000000008000000;
constexpr uint64 CPF_BlueprintAssignable = 0x0000000010000000;
constexpr uint64 CPF_Deprecated = 0x0000000020000000;
constexpr uint64 CPF_RepSkip = 0x0000000080000000;
constexpr uint64 CPF_RepNotify = 0x0000000100000000;
constexpr uint64 CPF_Interp = 0x0000000200000000;
constexpr uint64 CPF_EditorOnly = 0x0000000800000000;
constexpr uint64 CPF_AdvancedDisplay = 0x0000040000000000;
constexpr uint64 CPF_Protected = 0x0000080000000000;
constexpr uint64 CPF_BlueprintCallable = 0x0000100000000000;
constexpr uint64 CPF_BlueprintAuthorityOnly = 0x0000200000000000;
constexpr uint64 CPF_TextExportTransient = 0x0000400000000000;
constexpr uint64 CPF_ExposeOnSpawn = 0x0001000000000000;
constexpr uint64 CPF_PersistentInstance = 0x0002000000000000;
constexpr uint64 CPF_UObjectWrapper = 0x0004000000000000;
constexpr uint64 CPF_NativeAccessSpecifierPrivate = 0x0040000000000000;

/** How RenameObject treats its object. Only the tests for a clash differ; redirectors do not exist here. */
using ERenameFlags = uint32;
constexpr ERenameFlags REN_None = 0x0000;
constexpr ERenameFlags REN_ForceNoResetLoaders = 0x0001;
constexpr ERenameFlags REN_Test = 0x0002;
constexpr ERenameFlags REN_DoNotDirty = 0x0004;
constexpr ERenameFlags REN_DontCreateRedirectors = 0x0010;
constexpr ERenameFlags REN_NonTransactional = 0x0020;

// Marks that the editor's header tool reads. Here they say nothing; a class's ".generated.h" defines its body.
#define UCLASS(...)
#define UPROPERTY(...)
#define GENERATED_BODY() CURRENT_FILE_GENERATED_BODY
