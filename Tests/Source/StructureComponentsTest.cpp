#include "BlueprintNodeUtils.h"
#include "Components/SceneComponent.h"
#include "Engine/InheritableComponentHandler.h"
#include "K2Node_VariableGet.h"
#include "Standalone/EditorFaults.h"
#include "Structuring.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

TEST(StructureComponents, ATreeWithPropertiesOfEveryKind)
{
	FStructuring Case;
	Case.Components(R"({"name":"Root","type":"SceneComponent","attach_to":"DefaultSceneRoot"},
		{"name":"Mesh","type":"StaticMeshComponent","attach_to":"Root","properties":{
			"relative_location":{"x":1,"y":"2"},"relative_rotation":{"yaw":90},"relative_scale_3d":[2,2,2],
			"mobility":"stationary","BodyInstance":{"CollisionProfileName":"BlockAll"},"tags":["a","b"],
			"visible":false,"CastShadow":"false","CustomDepthStencilValue":"7"}},
		{"name":"My Lamp","type":"/Script/Engine.PointLightComponent","attach_to":"mesh","properties":{
			"Intensity":"1000","LightColor":{"R":255,"G":128,"B":0},"RelativeLocation":"Z=50"
}
},
		{"name":"Spin","type":"RotatingMovementComponent","properties":{"RotationRate":{"yaw":45}}})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_THAT(Case.Done(),
		ElementsAre("Created new component: Root of type SceneComponent",
			"Attached existing component 'Root' to parent 'DefaultSceneRoot'",
			"Created new component: Mesh of type StaticMeshComponent",
			"Attached existing component 'Mesh' to parent 'Root'",
			"Created new component: My Lamp of type /Script/Engine.PointLightComponent",
			"Attached existing component 'My Lamp' to parent 'mesh'",
			"Created new component: Spin of type RotatingMovementComponent"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.ParentOf(TEXT("Root")), "DefaultSceneRoot");
	EXPECT_EQ(Case.ParentOf(TEXT("Mesh")), "Root");
	EXPECT_EQ(Case.ParentOf(TEXT("My Lamp")), "Mesh");
	EXPECT_EQ(Case.ParentOf(TEXT("Spin")), "");
	struct FRow
	{
		const TCHAR* Component;
		const TCHAR* Property;
		const char* Value;
	};
	for (const FRow& Row : {FRow{TEXT("Mesh"), TEXT("RelativeLocation"), "(X=1.000000,Y=2.000000,Z=0.000000)"},
			 FRow{TEXT("Mesh"), TEXT("RelativeRotation"), "(Pitch=0.000000,Yaw=90.000000,Roll=0.000000)"},
			 FRow{TEXT("Mesh"), TEXT("RelativeScale3D"), "(X=2.000000,Y=2.000000,Z=2.000000)"},
			 FRow{TEXT("Mesh"), TEXT("Mobility"), "Stationary"},
			 FRow{TEXT("Mesh"), TEXT("ComponentTags"), R"(("a","b"))"}, FRow{TEXT("Mesh"), TEXT("bVisible"), "False"},
			 FRow{TEXT("Mesh"), TEXT("CastShadow"), "False"}, FRow{TEXT("Mesh"), TEXT("CustomDepthStencilValue"), "7"},
			 FRow{TEXT("My Lamp"), TEXT("Intensity"), "1000.000000"},
			 FRow{TEXT("My Lamp"), TEXT("LightColor"), "(B=0,G=128,R=255,A=255)"},
			 FRow{TEXT("My Lamp"), TEXT("RelativeLocation"), "(X=0.000000,Y=0.000000,Z=50.000000)"},
			 FRow{TEXT("Spin"), TEXT("RotationRate"), "(Pitch=0.000000,Yaw=45.000000,Roll=0.000000)"}})
	{
		EXPECT_EQ(Case.Value(Row.Component, Row.Property), Row.Value) << ToStd(Row.Property);
	}
	EXPECT_THAT(Case.Value(TEXT("Mesh"), TEXT("BodyInstance")), HasSubstr(R"(CollisionProfileName="BlockAll")"));
}

TEST(StructureComponents, RefusedEntriesAreToldAndTheOthersAreDone)
{
	FStructuring Case;
	Case.Variables(R"("Taken":{"action":"add","type":"int"})");
	Case.Components(R"({"name":"A","type":"Actor"},{"name":"B","type":"PrimitiveComponent"},{"name":"C"},
		{"type":"BoxComponent"},5,{"name":"x/y","type":"BoxComponent"},{"name":"x.y","type":"BoxComponent"},
		{"name":"","type":"BoxComponent"},{"name":"Taken","type":"BoxComponent"},
		{"name":"Box","type":"BoxComponent","attach_to":"Nobody","atach":"x","properties":{"relativ_location":{"x":1},
			"BoxExtent":"10,20,30","AttachParent":"None","mobility":"sideways","relative_location":"somewhere"}},
		{"name":"Move","type":"RotatingMovementComponent","properties":{"relative_location":{"x":1}},"attach_to":"Box"},
		{"name":"Box","type":"BoxComponent"},{"name":"Ghost","action":"modify"},{"name":"Ghost","action":"remove"},
		{"name":"Ghost","action":"paint"},{"name":"Box","action":"modify","type":"SphereComponent","properties":7})");
	EXPECT_THAT(Case.Refused(),
		ElementsAre(HasSubstr("for name 'x/y'"), HasSubstr("for name 'x.y'"), "Variable name cannot be empty",
			"A variable with name 'Taken' already exists"));
	EXPECT_THAT(Case.Told(),
		ElementsAre("Invalid component class: Actor", StartsWith("Invalid component class: PrimitiveComponent"),
			"Component 'C' with 'Add' action missing 'type' field.", "Component entry missing 'name' field.",
			"Component entry missing 'name' field.", StartsWith("Unknown key 'atach' of component 'Box' was ignored"),
			"Property 'relativ_location' not found on component 'Box' of class BoxComponent; did you mean "
			"'relative_location'?",
			"Property 'AttachParent' of component 'Box' was left as it is: it cannot be edited",
			AllOf(StartsWith("Property 'Mobility' of component 'Box' was left as it is: 'sideways'"),
				HasSubstr("Static, Stationary, Movable")),
			StartsWith("Property 'RelativeLocation' of component 'Box' was left as it is: "),
			"Parent component 'Nobody' not found for attachment",
			"Component 'Move' of class RotatingMovementComponent has no place, so 'relative_location' was left out",
			"Failed to reparent component 'Move' to 'Box' using SubobjectDataSubsystem",
			"Component 'Move' stays where it is: 'Move' is no scene component",
			"Component 'Box' already exists, cannot add", "Component 'Ghost' not found for modification",
			"Unknown action 'paint' of component 'Ghost'; use add, modify or remove",
			"7, given for 'properties' of component 'Box', is not an object; it was left out",
			StartsWith("Component 'Box' is of class BoxComponent and keeps it"),
			"Component not found for removal: Ghost"));
	EXPECT_EQ(Case.Value(TEXT("Box"), TEXT("BoxExtent")), "(X=10.000000,Y=20.000000,Z=30.000000)");
	EXPECT_EQ(Case.Value(TEXT("Box"), TEXT("Mobility")), "Movable");
	EXPECT_THAT(Case.Done(),
		ElementsAre("Created new component: Box of type BoxComponent",
			"Created new component: Move of type RotatingMovementComponent", "No changes made to component: Box"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureComponents, MovingOneTakesWhatHangsOnIt)
{
	FStructuring Case;
	Case.Components(R"({"name":"A","type":"SceneComponent"},{"name":"B","type":"SceneComponent","attach_to":"A"},
		{"name":"C","type":"SceneComponent","attach_to":"B"},{"name":"D","type":"SceneComponent","attach_to":"A"})");
	Case.Components(R"({"name":"B","action":"modify","attach_to":"D"},{"name":"C","action":"modify","attach_to":"B"},
		{"name":"A","action":"modify","attach_to":"C"},{"name":"D","action":"modify","attach_to":"D"})");
	EXPECT_THAT(Case.Done(),
		ElementsAre("Attached existing component 'B' to parent 'D'", "Modified existing component: B",
			"No changes made to component: C", "No changes made to component: A", "No changes made to component: D"));
	EXPECT_THAT(Case.Told(),
		ElementsAre("Failed to reparent component 'A' to 'C' using SubobjectDataSubsystem",
			"Component 'A' stays where it is: 'C' hangs on 'A' already",
			"Failed to reparent component 'D' to 'D' using SubobjectDataSubsystem",
			"Component 'D' stays where it is: a component cannot hang on itself"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.ParentOf(TEXT("B")), "D");
	EXPECT_EQ(Case.ParentOf(TEXT("C")), "B");
}

TEST(StructureComponents, TheStandInForARootGoesAndComesBack)
{
	FStructuring Case;
	Case.Components(R"({"name":"DefaultSceneRoot","action":"remove"})");
	EXPECT_THAT(Case.Told(), ElementsAre(StartsWith("Component 'DefaultSceneRoot' stands in for a root")));
	Case.Components(R"({"name":"Lamp","type":"PointLight","attach_to":"DefaultSceneRoot"})");
	EXPECT_EQ(Case.ParentOf(TEXT("Lamp")), "DefaultSceneRoot");
	Case.Components(R"({"name":"Mesh","type":"StaticMeshComponent"})");
	EXPECT_EQ(Case.Component(TEXT("DefaultSceneRoot")), nullptr);
	EXPECT_EQ(Case.ParentOf(TEXT("Lamp")), "") << "what hung on the stand-in moves up";
	Case.Components(R"({"name":"Lamp","action":"remove"})");
	Case.Components(R"({"name":"Late","type":"SceneComponent","attach_to":"DefaultSceneRoot"})");
	EXPECT_THAT(Case.Told(), ElementsAre("Parent component 'DefaultSceneRoot' not found for attachment"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	Case.Components(R"({"name":"Mesh","action":"remove"},{"name":"Late","action":"remove"})");
	EXPECT_NE(Case.Component(TEXT("DefaultSceneRoot")), nullptr);
	EXPECT_THAT(Case.Faults(), IsEmpty());
	Case.Components(R"({"name":"Mesh","type":"BoxComponent"})");
	EXPECT_THAT(Case.Told(), IsEmpty()) << "the name of a removed component is free";
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureComponents, RemovalTakesChildrenAndNodesAlong)
{
	FStructuring Case;
	Case.Components(R"({"name":"P","type":"SceneComponent","attach_to":"DefaultSceneRoot"},
		{"name":"A","type":"SceneComponent","attach_to":"P"},{"name":"B","type":"SceneComponent","attach_to":"P"})");
	FBlueprintNodeUtils::CreateVariableGetNode(
		Case.Blueprint.Get(), Case.Blueprint.EventGraph().Get(), TEXT("A"), FVector2D());
	Case.Components(R"({"name":"P","action":"remove"},{"name":"B","action":"remove"})");
	EXPECT_THAT(Case.Told(),
		ElementsAre("Warning: Removing component 'P' will affect 2 attached children.",
			StartsWith("1 node(s) about component 'A' were removed with it: 'Get A' in graph 'EventGraph'"),
			"Component 'A' was removed with the component that it hung on",
			"Component 'B' was removed with the component that it hung on"));
	EXPECT_THAT(Case.Done(), ElementsAre("Removed component: P", "Removed component: B"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.Component(TEXT("A")), nullptr);
}

TEST(StructureComponents, NativeOnesAreParentsAndKeepWhatThisBlueprintGivesThem)
{
	FStructuring Case(TEXT("/Script/Engine.Character"));
	Case.Components(R"({"name":"Cam","type":"CameraComponent","attach_to":"Mesh"},
		{"name":"Arm","type":"SpringArmComponent","attach_to":"CollisionCylinder"},
		{"name":"Eye","type":"CameraComponent","attach_to":"Arm"},{"name":"Mesh","type":"StaticMeshComponent"},
		{"name":"Mesh","action":"modify","properties":{"visible":false}},
		{"name":"charMoveComp","action":"modify","properties":{"MaxWalkSpeed":750,"Nope":1}},
		{"name":"CollisionCylinder","action":"modify","attach_to":"Mesh"},
		{"name":"Cam","action":"modify","attach_to":"Mesh"},{"name":"JumpMaxCount","action":"modify"})");
	EXPECT_THAT(Case.Told(),
		ElementsAre(StartsWith("Property 'Nope' not found on component 'charMoveComp'"),
			"Component 'CollisionCylinder' is inherited from 'Character' and keeps its class and place; 'attach_to' was "
			"left out",
			"Component 'JumpMaxCount' not found for modification"));
	EXPECT_THAT(Case.Refused(), ElementsAre("A property with name 'Mesh' already exists in the parent class"));
	EXPECT_THAT(Case.Done(),
		AllOf(Contains("Modified existing component: Mesh"), Contains("Modified existing component: charMoveComp"),
			Contains("No changes made to component: CollisionCylinder"),
			Contains("No changes made to component: Cam")));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	const TSharedPtr<Morvane::FToolResult> Read = RunTool(TEXT("read_blueprint_component"),
		R"({"path":")" + ToStd(Case.Blueprint.Path()) + R"(","component_name":"CharacterMovement"})");
	EXPECT_THAT(ToStd(Read->GetDatas()->GetStringField(TEXT("content"))),
		HasSubstr(R"("properties":{"MaxWalkSpeed":"750.000000"})"))
		<< "after a save and a reload";
	EXPECT_EQ(Case.ParentOf(TEXT("Cam")), "CharacterMesh0");
	EXPECT_EQ(Case.ParentOf(TEXT("Arm")), "CollisionCylinder");
	EXPECT_EQ(Case.ParentOf(TEXT("Eye")), "Arm");
}

TEST(StructureComponents, ThoseOfAParentBlueprintAreParentsToo)
{
	FStructuring Case;
	Case.Components(R"({"name":"Base","type":"SceneComponent"})");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Heir","blueprint_parent_class":{"type":"blueprint",
		"parent_path":")"
			+ ToStd(Case.Blueprint.Path()) + R"("}})");
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("modify_blueprint_class_structure"),
		R"({"path":"/Game/Tests/BP_Heir","components":[{"name":"Box","type":"BoxComponent","attach_to":"Base"},
			{"name":"Base","action":"modify","properties":{"visible":false}},{"name":"Base","action":"remove"}],
			"variables":{"Base":{"action":"remove"}}})");
	EXPECT_THAT(Successes(*Result), Contains("Attached existing component 'Box' to parent 'Base'"));
	EXPECT_THAT(Warnings(*Result),
		ElementsAre("Property 'Base' is inherited or native and cannot be removed from Blueprint",
			"Component not found for removal: Base",
			"Some class structure modifications failed in Blueprint: BP_Heir"));
}

TEST(StructureComponents, ThoseOfAParentBlueprintTakeValuesOfTheirOwn)
{
	FStructuring Case;
	Case.Components(R"({"name":"Lamp","type":"PointLight","properties":{"Intensity":10}})");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Heir","blueprint_parent_class":{"type":"blueprint",
		"parent_path":")"
			+ ToStd(Case.Blueprint.Path()) + R"("}})");
	const auto Change = [](const std::string& Entry)
	{
		return RunTool(TEXT("modify_blueprint_class_structure"),
			R"({"path":"/Game/Tests/BP_Heir","components":[{"name":"lamp","action":"modify",)" + Entry + "}]}");
	};
	const auto Read = []
	{
		return ToStd(
			RunTool(TEXT("read_blueprint_component"), R"({"path":"/Game/Tests/BP_Heir","component_name":"Lamp"})")
				->GetDatas()
				->GetStringField(TEXT("content")));
	};
	UBlueprint* const Heir = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Heir.BP_Heir"));
	ASSERT_NE(Heir, nullptr);
	TSharedPtr<Morvane::FToolResult> Result = Change(R"("properties":{"Intensity":10})");
	EXPECT_THAT(Successes(*Result), Contains("No changes made to component: lamp"));
	EXPECT_EQ(Heir->GetInheritableComponentHandler(false), nullptr) << "no template for nothing";
	Result = Change(R"("properties":{"Intensity":20},"attach_to":"Lamp")");
	EXPECT_THAT(Successes(*Result), Contains("Modified existing component: lamp"));
	EXPECT_THAT(Warnings(*Result), ElementsAre(StartsWith("Component 'lamp' is inherited from 'BP_Test_C' and keeps")));
	EXPECT_THAT(Read(), AllOf(HasSubstr(R"("Intensity":"20.0)"), HasSubstr(R"("overridden":["Intensity"])")));

	// What the parent changes afterwards arrives below, but for what has a value of its own there.
	Case.Components(R"({"name":"Lamp","action":"modify","properties":{"Intensity":30,"AttenuationRadius":70}})");
	EXPECT_THAT(Read(),
		AllOf(HasSubstr(R"("Intensity":"20.0)"), HasSubstr(R"("AttenuationRadius":"70.0)"),
			HasSubstr(R"("overridden":["Intensity"])")));
	EXPECT_EQ(Case.Value(TEXT("Lamp"), TEXT("Intensity")), "30.000000") << "the parent keeps its own";
	const std::string Before = Read();
	Morvane::FToolResult Compiled = *RunTool(
		TEXT("compile_blueprint"), R"({"blueprint_paths":["/Game/Tests/BP_Heir"]})");
	EXPECT_THAT(Errors(Compiled), IsEmpty());
	EXPECT_EQ(Read(), Before);

	Case.Components(R"({"name":"Lamp","action":"remove"})");
	RunTool(TEXT("compile_blueprint"), R"({"blueprint_paths":["/Game/Tests/BP_Heir"]})");
	EXPECT_TRUE(Heir->GetInheritableComponentHandler(false)->IsEmpty()) << "nothing is left of it here";
}

TEST(StructureComponents, WithoutTheSubsystemNodesAreLinkedDirectly)
{
	FStructuring Case;
	Case.Components(R"({"name":"A","type":"SceneComponent"},{"name":"B","type":"SceneComponent","attach_to":"A"},
		{"name":"C","type":"SceneComponent","attach_to":"A"})");
	{
		const EditorFaults::FNoSubobjectData Gone(ESubobjectFault::Missing);
		Case.Components(R"({"name":"C","action":"modify","attach_to":"B"})");
	}
	EXPECT_THAT(Case.Told(), ElementsAre("SubobjectDataSubsystem not available, using fallback attachment method"));
	EXPECT_THAT(Case.Done(), Contains("Attached existing component 'C' to parent 'B' (fallback)"));
	EXPECT_EQ(Case.ParentOf(TEXT("C")), "B");
	{
		const EditorFaults::FNoSubobjectData Refusing(ESubobjectFault::Refusing);
		Case.Components(R"({"name":"C","action":"modify","attach_to":"A"})");
	}
	EXPECT_THAT(Case.Told(), ElementsAre("Failed to reparent component 'C' to 'A' using SubobjectDataSubsystem"));
	EXPECT_THAT(Case.Done(), Contains("Attached existing component 'C' to parent 'A' (direct method)"));
	EXPECT_EQ(Case.ParentOf(TEXT("C")), "A");
	EXPECT_THAT(Case.Faults(), IsEmpty());
}
