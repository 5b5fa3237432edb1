using UnrealBuildTool;

// For a build inside the editor. CMake builds the same sources against the standalone editor; CI does not run this file.
public class MorvaneCore : ModuleRules
{
	public MorvaneCore(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new[] { "Core", "CoreUObject", "Json" });
		PrivateDependencyModuleNames.AddRange(new[] { "AssetRegistry" });
	}
}
