using UnrealBuildTool;

// For a build inside the editor. CMake builds the same sources against the standalone editor; CI does not run this file.
public class MorvaneToolkit : ModuleRules
{
	public MorvaneToolkit(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new[] { "Core", "CoreUObject", "Engine", "Json", "MorvaneCore" });
		PrivateDependencyModuleNames.AddRange(new[] { "AssetRegistry", "BlueprintGraph", "SourceControl", "UnrealEd" });
	}
}
