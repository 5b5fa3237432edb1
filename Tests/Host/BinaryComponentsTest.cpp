// What a child Blueprint of the engine's own files says of the components that it inherits.

#include "BinaryAssetsTest.h"
#include "TaggedObject.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace BinaryComponentsTest
{
static void Brighter(FTaggedObject& Template)
{
	Template.Float("Intensity", 250.0f);
}

static void Moved(FTaggedObject& Template)
{
	Template.Vector("RelativeLocation", 7, 8, 9);
}

/** As bright as a new light of the class, which is another value than the parent's all the same. */
static void LikeANewOne(FTaggedObject& Template)
{
	Template.Float("Intensity", 5000.0f);
}

static void WriteProject(const FTemporaryFolder& Project, const FPackageLayout& Layout, bool bWithParent)
{
	if (bWithParent)
	{
		Project.Write("Content/BP_Lamp.uasset", ActorPackages::Parent(Layout).Write().Bytes);
	}
	const std::tuple<const char*, const char*, void (*)(FTaggedObject&)> Children[] = {
		{"/Game/BP_Child", "/Game/BP_Lamp", &Brighter}, {"/Game/BP_Grandchild", "/Game/BP_Child", &Moved},
		{"/Game/BP_Plain", "/Game/BP_Lamp", &LikeANewOne}};
	for (const auto& [Path, ParentPath, Values] : Children)
	{
		Project.Write("Content" + std::string(Path).substr(5) + ".uasset",
			ActorPackages::Child(Layout, Path, ParentPath, Values).Write().Bytes);
	}
}

static std::string ReadLamp(const FTemporaryFolder& Project, const std::string& Path)
{
	const BinaryAssetsTest::FAnswer Answer = BinaryAssetsTest::Call(
		Project, "read_blueprint_component", R"({"path":")" + Path + R"(","component_name":"Lamp"})");
	EXPECT_TRUE(Answer.bSuccess) << Answer.Json;
	std::string Json = Answer.Json;
	// The document is a text in the result.
	std::erase(Json, '\\');
	return Json;
}
} // namespace BinaryComponentsTest

TEST(BinaryComponents, AChildsValuesGoBeforeItsParents)
{
	using namespace BinaryComponentsTest;
	for (const std::string Engine : {"4.20", "4.27", "5.7"})
	{
		SCOPED_TRACE(Engine);
		const FTemporaryFolder Project;
		WriteProject(Project, FPackageLayout::Of(Engine), true);
		EXPECT_THAT(ReadLamp(Project, "/Game/BP_Lamp"),
			AllOf(HasSubstr(R"("Intensity":"100.000000")"), Not(HasSubstr("inherited"))));
		EXPECT_THAT(ReadLamp(Project, "/Game/BP_Child"),
			AllOf(HasSubstr(R"("inherited_from":"BP_Lamp_C")"), HasSubstr(R"("Intensity":"250.000000")"),
				HasSubstr(R"("relative_location":{"x":1,"y":2,"z":3})"), HasSubstr(R"("overridden":["Intensity"])")));
		EXPECT_THAT(ReadLamp(Project, "/Game/BP_Grandchild"),
			AllOf(HasSubstr(R"("Intensity":"250.000000")"), HasSubstr(R"("relative_location":{"x":7,"y":8,"z":9})"),
				HasSubstr(R"("overridden":["RelativeLocation"])")));
		EXPECT_THAT(ReadLamp(Project, "/Game/BP_Plain"), HasSubstr(R"("overridden":["Intensity"])"));
	}
}

TEST(BinaryComponents, ATextCopyKeepsAChildsValues)
{
	using namespace BinaryComponentsTest;
	const FTemporaryFolder Project;
	WriteProject(Project, FPackageLayout::Of("5.7"), true);
	EXPECT_EQ(RunMorvane({"import", "/Game/BP_Plain", "--project", Project.Path()}).Status, 0);
	// Saved once more, by what it holds in memory.
	const BinaryAssetsTest::FAnswer Changed = BinaryAssetsTest::Call(Project, "modify_blueprint_class_structure",
		R"({"path":"/Game/BP_Plain","variables":{"Speed":{"action":"add","type":{"category":"int"}}}})");
	EXPECT_TRUE(Changed.bSuccess) << Changed.Json;
	EXPECT_THAT(Project.Read("Content/BP_Plain.uatext"), HasSubstr("Intensity=5000.0"));
	EXPECT_THAT(ReadLamp(Project, "/Game/BP_Plain"),
		AllOf(HasSubstr(R"("overridden":["Intensity"])"), HasSubstr(R"("relative_location":{"x":1,"y":2,"z":3})")));
}

TEST(BinaryComponents, WithoutTheParentItsChangedComponentsAreThereStill)
{
	using namespace BinaryComponentsTest;
	const FTemporaryFolder Project;
	WriteProject(Project, FPackageLayout::Of("5.7"), false);
	EXPECT_THAT(ReadLamp(Project, "/Game/BP_Child"),
		AllOf(HasSubstr(R"("class_name":"PointLightComponent")"), HasSubstr(R"("inherited_from":"BP_Lamp_C")"),
			HasSubstr(R"("Intensity":"250.000000")"), HasSubstr(R"(missing and read as unresolved: '/Game/BP_Lamp.)")));
}
