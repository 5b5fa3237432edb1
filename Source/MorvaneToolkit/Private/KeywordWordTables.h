#pragma once

#include "CoreMinimal.h"

/** What is known of words. Only KeywordWords reads it. */
namespace KeywordWordTables
{
struct FSpelling
{
	const TCHAR* Word;
	const TCHAR* Means;
};

/** Words of agents and of older engine versions beside the one that counts. Titles pass through here as well. */
inline constexpr FSpelling Spellings[] = {
	{TEXT("plus"), TEXT("add")},
	{TEXT("minus"), TEXT("subtract")},
	{TEXT("multiplied"), TEXT("multiply")},
	{TEXT("divided"), TEXT("divide")},
	{TEXT("modulus"), TEXT("modulo")},
	{TEXT("mod"), TEXT("modulo")},
	{TEXT("abs"), TEXT("absolute")},
	{TEXT("sqrt"), TEXT("square root")},
	{TEXT("sine"), TEXT("sin")},
	{TEXT("cosine"), TEXT("cos")},
	{TEXT("tangent"), TEXT("tan")},
	{TEXT("conv"), TEXT("convert")},
	{TEXT("equality"), TEXT("equal")},
	{TEXT("double"), TEXT("float")},
	{TEXT("real"), TEXT("float")},
	{TEXT("int"), TEXT("integer")},
	{TEXT("int32"), TEXT("integer")},
	{TEXT("int64"), TEXT("integer64")},
	{TEXT("integer64"), TEXT("integer64")},
	{TEXT("frand"), TEXT("random float")},
	{TEXT("bool"), TEXT("boolean")},
	{TEXT("str"), TEXT("string")},
	{TEXT("strstr"), TEXT("string")},
	{TEXT("prebool"), TEXT("boolean")},
	{TEXT("concat"), TEXT("append")},
	{TEXT("concatenate"), TEXT("append")},
	{TEXT("receive"), TEXT("event")},
	{TEXT("dynamiccast"), TEXT("cast to")},
	{TEXT("bt"), TEXT("behavior tree")},
	{TEXT("fclamp"), TEXT("clamp float")},
	{TEXT("fmin"), TEXT("min float")},
	{TEXT("fmax"), TEXT("max float")},
	{TEXT("vlerp"), TEXT("lerp vector")},
	{TEXT("rlerp"), TEXT("lerp rotator")},
	{TEXT("tlerp"), TEXT("lerp transform")},
	{TEXT("vsize"), TEXT("vector length")},
	{TEXT("actors"), TEXT("actor")},
	{TEXT("vec"), TEXT("vector")},
	{TEXT("obj"), TEXT("object")},
	{TEXT("ref"), TEXT("reference")},
	{TEXT("comp"), TEXT("component")},
	{TEXT("loc"), TEXT("location")},
	{TEXT("rot"), TEXT("rotation")},
	{TEXT("pos"), TEXT("position")},
	{TEXT("dist"), TEXT("distance")},
	{TEXT("param"), TEXT("parameter")},
	{TEXT("num"), TEXT("number")},
	{TEXT("rand"), TEXT("random")},
	{TEXT("maximum"), TEXT("max")},
	{TEXT("minimum"), TEXT("min")},
	{TEXT("anim"), TEXT("animation")},
	{TEXT("char"), TEXT("character")},
	{TEXT("btn"), TEXT("button")},
	{TEXT("txt"), TEXT("text")},
	{TEXT("img"), TEXT("image")},
	{TEXT("init"), TEXT("initialize")},
	{TEXT("initialise"), TEXT("initialize")},
	{TEXT("normalise"), TEXT("normalize")},
	{TEXT("colour"), TEXT("color")},
	{TEXT("grey"), TEXT("gray")},
	{TEXT("centre"), TEXT("center")},
	{TEXT("behaviour"), TEXT("behavior")},
	{TEXT("lookat"), TEXT("look at")},
	{TEXT("beginplay"), TEXT("begin play")},
	{TEXT("endplay"), TEXT("end play")},
	{TEXT("foreach"), TEXT("for each")},
	{TEXT("forloop"), TEXT("for loop")},
	{TEXT("foreachloop"), TEXT("for each loop")},
	{TEXT("flipflop"), TEXT("flip flop")},
	{TEXT("finterp"), TEXT("f interp")},
	{TEXT("tinterp"), TEXT("t interp")},
	{TEXT("vinterp"), TEXT("v interp")},
	{TEXT("rinterp"), TEXT("r interp")},
	{TEXT("doonce"), TEXT("do once")},
	{TEXT("linetrace"), TEXT("line trace")},
	{TEXT("gamemode"), TEXT("game mode")},
	{TEXT("gamestate"), TEXT("game state")},
	{TEXT("viewport"), TEXT("view port")},
	{TEXT("timestep"), TEXT("time step")},
};

/** Longer signs first, so that each text is cut at the longest that fits. */
struct FSign
{
	const TCHAR* Sign;
	const TCHAR* Means;
	/** Stands for the operator only between blanks or ends; inside a word it merely separates. */
	bool bNeedsRoom;
};

inline constexpr FSign Signs[] = {
	{TEXT("<<"), TEXT("left shift"), false},
	{TEXT(">>"), TEXT("right shift"), false},
	{TEXT("->"), TEXT(""), false},
	{TEXT("++"), TEXT("increment"), false},
	{TEXT("--"), TEXT("decrement"), true},
	{TEXT("=="), TEXT("equal"), false},
	{TEXT("!="), TEXT("not equal"), false},
	{TEXT("<="), TEXT("less equal"), false},
	{TEXT(">="), TEXT("greater equal"), false},
	{TEXT("&&"), TEXT("and"), false},
	{TEXT("||"), TEXT("or"), false},
	{TEXT("+"), TEXT("add"), false},
	{TEXT("*"), TEXT("multiply"), false},
	{TEXT("%"), TEXT("modulo"), false},
	{TEXT("-"), TEXT("subtract"), true},
	{TEXT("/"), TEXT("divide"), true},
	{TEXT("<"), TEXT("less"), true},
	{TEXT(">"), TEXT("greater"), true},
	{TEXT("="), TEXT("equal"), true},
	{TEXT("&"), TEXT("and"), true},
	{TEXT("!"), TEXT("not"), true},
	{TEXT("~"), TEXT("not"), true},
	{TEXT("^"), TEXT("power"), true},
};

/** Words that no title needs to be told apart. */
inline constexpr const TCHAR* Fillers[] = {TEXT("the"), TEXT("a"), TEXT("an"), TEXT("my"), TEXT("your"), TEXT("our"),
	TEXT("its"), TEXT("please"), TEXT("node"), TEXT("some"), TEXT("operator"), TEXT("than")};

/** Node classes that stand behind many titles: what is asked for is then in the title alone. */
inline constexpr const TCHAR* FamilyClasses[] = {TEXT("CallFunction"), TEXT("CallArrayFunction"),
	TEXT("CallMaterialParameterCollectionFunction"), TEXT("CallDataTableFunction"), TEXT("CallFunctionOnMember"),
	TEXT("CallParentFunction"), TEXT("CommutativeAssociativeBinaryOperator"), TEXT("PromotableOperator"),
	TEXT("MacroInstance"), TEXT("Event"), TEXT("CustomEvent"), TEXT("ActorBoundEvent"), TEXT("ComponentBoundEvent"),
	TEXT("InputAction"), TEXT("InputActionEvent"), TEXT("InputKey"), TEXT("InputKeyEvent"), TEXT("InputAxisEvent"),
	TEXT("InputAxisKeyEvent"), TEXT("EnhancedInputAction"), TEXT("GetInputActionValue"), TEXT("GetInputAxisValue"),
	TEXT("VariableGet"), TEXT("VariableSet"), TEXT("Variable"), TEXT("DynamicCast"), TEXT("ClassDynamicCast"),
	TEXT("MakeStruct"), TEXT("BreakStruct"), TEXT("SetFieldsInStruct"), TEXT("SwitchEnum"), TEXT("AddComponent"),
	TEXT("Message"), TEXT("AddDelegate"), TEXT("RemoveDelegate"), TEXT("ClearDelegate"), TEXT("CallDelegate"),
	TEXT("AssignDelegate"), TEXT("AsyncAction"), TEXT("LatentAbilityCall"), TEXT("LatentGameplayTaskCall"),
	TEXT("AIMoveTo"), TEXT("Literal"), TEXT("GetEnumeratorName"), TEXT("BaseAsyncTask"), TEXT("GetSubsystem"),
	TEXT("EnumLiteral"), TEXT("CastByteToEnum"), TEXT("ForEachElementInEnum"), TEXT("Tunnel"), TEXT("Composite")};

/** Of those, the ones whose titles are a verb and one name. */
inline constexpr const TCHAR* NamedClasses[] = {TEXT("VariableGet"), TEXT("VariableSet"), TEXT("DynamicCast"),
	TEXT("ClassDynamicCast"), TEXT("AddDelegate"), TEXT("RemoveDelegate"), TEXT("ClearDelegate"), TEXT("CallDelegate"),
	TEXT("AssignDelegate"), TEXT("SwitchEnum"), TEXT("MakeStruct"), TEXT("BreakStruct"), TEXT("SetFieldsInStruct"),
	TEXT("EnumLiteral"), TEXT("CastByteToEnum"), TEXT("ForEachElementInEnum"), TEXT("GetNumEnumEntries"),
	TEXT("InputKey"), TEXT("Message")};

inline constexpr float ConnectorWeight = 0.15f;
inline constexpr float CommonWeight = 0.35f;
inline constexpr float OwnerWeight = 0.5f;

/** Words that join others. */
inline constexpr const TCHAR* Connectors[] = {TEXT("of"), TEXT("on"), TEXT("in"), TEXT("at"), TEXT("by"), TEXT("for"),
	TEXT("from"), TEXT("with"), TEXT("as"), TEXT("and"), TEXT("into"), TEXT("onto"), TEXT("call"), TEXT("when"),
	TEXT("this"), TEXT("that"), TEXT("current"), TEXT("one"), TEXT("second"), TEXT("if"), TEXT("new"), TEXT("using"),
	TEXT("use"), TEXT("via"), TEXT("it"), TEXT("all"), TEXT("two"), TEXT("both")};

/** Words that say whose the thing is, in hundreds of titles as well. */
inline constexpr const TCHAR* Owners[] = {TEXT("actor"), TEXT("component"), TEXT("widget"), TEXT("function")};

/** Between other words these say nothing. */
inline constexpr const TCHAR* Joints[] = {TEXT("of"), TEXT("on"), TEXT("in"), TEXT("at"), TEXT("by"), TEXT("for"),
	TEXT("from"), TEXT("with"), TEXT("as"), TEXT("into"), TEXT("onto"), TEXT("to"), TEXT("this"), TEXT("that"),
	TEXT("using")};

inline constexpr const TCHAR* TypeWords[] = {TEXT("float"), TEXT("integer"), TEXT("integer64"), TEXT("boolean"),
	TEXT("vector"), TEXT("2d"), TEXT("rotator"), TEXT("transform"), TEXT("string"), TEXT("name"), TEXT("text"),
	TEXT("byte"), TEXT("object"), TEXT("color"), TEXT("class")};

struct FPrior
{
	const TCHAR* Keyword;
	int32 Prior;
};

/** Words that are not here count one. */
inline constexpr FPrior Priors[] = {
	{TEXT("utility"), 0},
	{TEXT("math"), 0},
	{TEXT("float"), 0},
	{TEXT("array"), 0},
	{TEXT("string"), 0},
	{TEXT("game"), 0},
	{TEXT("transformation"), 0},
	{TEXT("actor"), 0},
	{TEXT("development"), 0},
	{TEXT("flow"), 0},
	{TEXT("control"), 0},
	{TEXT("component"), 0},
	{TEXT("vector"), 0},
	{TEXT("boolean"), 0},
	{TEXT("get"), -2},
	{TEXT("integer"), 1},
	{TEXT("rotator"), 1},
	{TEXT("map"), 2},
	{TEXT("set"), 3},
	{TEXT("is"), 4},
	{TEXT("byte"), 3},
	{TEXT("integer64"), 3},
	{TEXT("2d"), 3},
	{TEXT("4"), 3},
	{TEXT("transform"), 2},
	{TEXT("quat"), 4},
	{TEXT("class"), 2},
	{TEXT("editor"), 6},
	{TEXT("scripting"), 6},
	{TEXT("niagara"), 6},
	{TEXT("cheat"), 8},
	{TEXT("canvas"), 4},
	{TEXT("sequencer"), 6},
	{TEXT("upgrade"), 8},
	{TEXT("rig"), 6},
	{TEXT("hierarchy"), 6},
	{TEXT("sprite"), 6},
	{TEXT("asset"), 3},
	{TEXT("registry"), 6},
	{TEXT("k2node_variableget"), 2},
	{TEXT("k2node_variableset"), 3},
	{TEXT("k2node_dynamiccast"), 6},
	{TEXT("k2node_classdynamiccast"), 8},
	{TEXT("k2node_latentgameplaytaskcall"), 12},
	{TEXT("k2node_inputkey"), 6},
	{TEXT("k2node_inputdebugkey"), 12},
	{TEXT("k2node_assigndelegate"), 10},
	{TEXT("k2node_adddelegate"), 8},
	{TEXT("k2node_removedelegate"), 10},
	{TEXT("k2node_cleardelegate"), 10},
	{TEXT("k2node_getnumenumentries"), 12},
	{TEXT("k2node_event"), 0},
	{TEXT("k2node_callfunction"), 0},
	{TEXT("k2node_callarrayfunction"), 0},
	{TEXT("k2node_promotableoperator"), 0},
	{TEXT("k2node_commutativeassociativebinaryoperator"), 0},
	{TEXT("k2node_macroinstance"), 0},
};

/** Words of hundreds of titles; the types among them only say which of several like nodes is meant. */
inline constexpr const TCHAR* CommonWords[] = {TEXT("get"), TEXT("set"), TEXT("event"), TEXT("is"), TEXT("to"),
	TEXT("has"), TEXT("ha"), TEXT("can"), TEXT("do"), TEXT("or"), TEXT("not"), TEXT("kismet"), TEXT("library"),
	TEXT("system"), TEXT("utility"), TEXT("target"), TEXT("make"), TEXT("break"), TEXT("then"), TEXT("else"),
	TEXT("self"), TEXT("value"), TEXT("float"), TEXT("integer"), TEXT("integer64"), TEXT("boolean"), TEXT("vector"),
	TEXT("2d"), TEXT("rotator"), TEXT("transform"), TEXT("string"), TEXT("name"), TEXT("text"), TEXT("byte"),
	TEXT("object"), TEXT("class"), TEXT("struct"), TEXT("array"), TEXT("map"), TEXT("reference")};

/** Words of the menu that have near neighbours in it ("point" and "print"): as they stand they are meant, never a slip.
 */
inline constexpr const TCHAR* WellKnown[] = {TEXT("absolute"), TEXT("action"), TEXT("actor"), TEXT("angle"),
	TEXT("animation"), TEXT("array"), TEXT("attach"), TEXT("audio"), TEXT("axis"), TEXT("back"), TEXT("begin"),
	TEXT("blend"), TEXT("bone"), TEXT("boolean"), TEXT("bottom"), TEXT("branch"), TEXT("break"), TEXT("button"),
	TEXT("byte"), TEXT("camera"), TEXT("cast"), TEXT("center"), TEXT("channel"), TEXT("character"), TEXT("child"),
	TEXT("class"), TEXT("clear"), TEXT("close"), TEXT("collision"), TEXT("color"), TEXT("component"),
	TEXT("controller"), TEXT("count"), TEXT("create"), TEXT("curve"), TEXT("damage"), TEXT("data"), TEXT("debug"),
	TEXT("delay"), TEXT("delegate"), TEXT("destroy"), TEXT("detach"), TEXT("direction"), TEXT("disable"),
	TEXT("distance"), TEXT("draw"), TEXT("each"), TEXT("enable"), TEXT("enum"), TEXT("equal"), TEXT("event"),
	TEXT("field"), TEXT("filter"), TEXT("find"), TEXT("finish"), TEXT("float"), TEXT("focus"), TEXT("force"),
	TEXT("forward"), TEXT("frame"), TEXT("front"), TEXT("game"), TEXT("gate"), TEXT("greater"), TEXT("group"),
	TEXT("health"), TEXT("height"), TEXT("image"), TEXT("impulse"), TEXT("index"), TEXT("input"), TEXT("instance"),
	TEXT("integer"), TEXT("item"), TEXT("layer"), TEXT("left"), TEXT("length"), TEXT("less"), TEXT("level"),
	TEXT("light"), TEXT("limit"), TEXT("line"), TEXT("link"), TEXT("list"), TEXT("load"), TEXT("local"),
	TEXT("location"), TEXT("lock"), TEXT("loop"), TEXT("make"), TEXT("mass"), TEXT("material"), TEXT("mesh"),
	TEXT("mode"), TEXT("montage"), TEXT("mouse"), TEXT("name"), TEXT("object"), TEXT("offset"), TEXT("owner"),
	TEXT("parameter"), TEXT("parent"), TEXT("path"), TEXT("pause"), TEXT("pawn"), TEXT("play"), TEXT("player"),
	TEXT("point"), TEXT("position"), TEXT("print"), TEXT("profile"), TEXT("radius"), TEXT("random"), TEXT("range"),
	TEXT("rate"), TEXT("relative"), TEXT("remove"), TEXT("request"), TEXT("reset"), TEXT("result"), TEXT("right"),
	TEXT("root"), TEXT("rotation"), TEXT("rotator"), TEXT("save"), TEXT("scale"), TEXT("scene"), TEXT("screen"),
	TEXT("select"), TEXT("sequence"), TEXT("shape"), TEXT("size"), TEXT("slider"), TEXT("slot"), TEXT("socket"),
	TEXT("sound"), TEXT("source"), TEXT("space"), TEXT("speed"), TEXT("sphere"), TEXT("spline"), TEXT("spring"),
	TEXT("sprint"), TEXT("stage"), TEXT("start"), TEXT("state"), TEXT("static"), TEXT("status"), TEXT("stop"),
	TEXT("string"), TEXT("struct"), TEXT("switch"), TEXT("table"), TEXT("target"), TEXT("task"), TEXT("text"),
	TEXT("texture"), TEXT("tick"), TEXT("time"), TEXT("timer"), TEXT("touch"), TEXT("trace"), TEXT("track"),
	TEXT("transform"), TEXT("tree"), TEXT("type"), TEXT("valid"), TEXT("value"), TEXT("variable"), TEXT("vector"),
	TEXT("velocity"), TEXT("view"), TEXT("visibility"), TEXT("visible"), TEXT("volume"), TEXT("weight"), TEXT("widget"),
	TEXT("width"), TEXT("world")};
} // namespace KeywordWordTables
