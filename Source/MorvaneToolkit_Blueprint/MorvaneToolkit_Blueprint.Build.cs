using UnrealBuildTool;

// For a build inside the editor. CMake builds the same sources against the standalone editor; CI does not run this file.
public class MorvaneToolkit_Blueprint : ModuleRules
{
	public MorvaneToolkit_Blueprint(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new[]
		{
			"Core", "CoreUObject", "Engine", "Json", "MorvaneCore", "MorvaneToolkit"
		});
		PrivateDependencyModuleNames.AddRange(new[]
		{
			"AnimGraph", "AssetRegistry", "BlueprintGraph", "GameplayTags", "GameplayTagsEditor", "InputCore", "KismetCompiler",
			"MovieScene", "Projects", "Slate", "SlateCore", "SubobjectDataInterface", "UMG", "UMGEditor", "UnrealEd"
		});
	}
}
