#include "KeywordWords.h"

namespace KeywordWordTables
{
struct FSpelling
{
	const TCHAR* Word;
	const TCHAR* Means;
};

/** Words of agents and of older engine versions beside the one that counts. Titles pass through here as well. */
constexpr FSpelling Spellings[] = {
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

constexpr FSign Signs[] = {
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
constexpr const TCHAR* Fillers[] = {TEXT("the"), TEXT("a"), TEXT("an"), TEXT("my"), TEXT("your"), TEXT("our"),
	TEXT("its"), TEXT("please"), TEXT("node"), TEXT("some"), TEXT("operator"), TEXT("than")};

/**
 * What authors say for a node whose title shares no word with it, or too few: the whole request, in words as Split
 * leaves them, without numbers and blanks. None of them may be a title of the menu, since titles pass through here too.
 */
constexpr FSpelling Shorthands[] = {
	{TEXT("sleepsecond"), TEXT("delay")},
	{TEXT("sleepforsecond"), TEXT("delay")},
	{TEXT("removeactor"), TEXT("destroy actor")},
	{TEXT("deleteactor"), TEXT("destroy actor")},
	{TEXT("killactor"), TEXT("destroy actor")},
	{TEXT("destroythisactor"), TEXT("destroy actor")},
	{TEXT("hideactor"), TEXT("set actor hidden in game")},
	{TEXT("showactor"), TEXT("set actor hidden in game")},
	{TEXT("setactorhidden"), TEXT("set actor hidden in game")},
	{TEXT("setactorvisibility"), TEXT("set actor hidden in game")},
	{TEXT("rotateactor"), TEXT("add actor local rotation")},
	{TEXT("moveactor"), TEXT("set actor location")},
	{TEXT("moveactortolocation"), TEXT("set actor location")},
	{TEXT("teleportactortolocation"), TEXT("teleport")},
	{TEXT("playmontage"), TEXT("play animation montage")},
	{TEXT("settextblocktext"), TEXT("set text")},
	{TEXT("settextoftextblock"), TEXT("set text")},
	{TEXT("setprogressbarpercent"), TEXT("set percent")},
	{TEXT("loadlevel"), TEXT("open level by name")},
	{TEXT("changelevel"), TEXT("open level by name")},
	{TEXT("switchlevel"), TEXT("open level by name")},
	{TEXT("openlevel"), TEXT("open level by name")},
	{TEXT("formatstring"), TEXT("format text")},
	{TEXT("absolutevalue"), TEXT("absolute")},
	{TEXT("getabsolutevalue"), TEXT("absolute")},
	{TEXT("clampvalue"), TEXT("clamp")},
	{TEXT("randomnumber"), TEXT("random float in range")},
	{TEXT("randomnumberinrange"), TEXT("random float in range")},
	{TEXT("randomfloatbetween"), TEXT("random float in range")},
	{TEXT("randomintegerbetween"), TEXT("random integer in range")},
	{TEXT("randomintegerbetweenand"), TEXT("random integer in range")},
	{TEXT("randomfloatbetweenand"), TEXT("random float in range")},
	{TEXT("randomnumberbetween"), TEXT("random float in range")},
	{TEXT("distancebetweentwovector"), TEXT("distance vector")},
	{TEXT("distancebetweenvector"), TEXT("distance vector")},
	{TEXT("vectordistancebetween"), TEXT("distance vector")},
	{TEXT("distancebetweenpoint"), TEXT("distance vector")},
	{TEXT("getlengthofvector"), TEXT("vector length")},
	{TEXT("lengthofvector"), TEXT("vector length")},
	{TEXT("getvectorlength"), TEXT("vector length")},
	{TEXT("getblackboardcomponent"), TEXT("get blackboard")},
	{TEXT("getfirstplayercontroller"), TEXT("get player controller")},
	{TEXT("getplayercameralocation"), TEXT("get camera location")},
	{TEXT("debugprintstring"), TEXT("print string")},
	{TEXT("starttimer"), TEXT("set timer by event")},
	{TEXT("createtimer"), TEXT("set timer by event")},
	{TEXT("stoptimer"), TEXT("clear timer by handle")},
	{TEXT("canceltimer"), TEXT("clear timer by handle")},
	{TEXT("createobject"), TEXT("construct object from class")},
	{TEXT("newobject"), TEXT("construct object from class")},
	{TEXT("constructobject"), TEXT("construct object from class")},
	{TEXT("creatematerialinstance"), TEXT("create dynamic material instance")},
	{TEXT("createmid"), TEXT("create dynamic material instance")},
	{TEXT("getarrayitematindex"), TEXT("get copy array")},
	{TEXT("getitematindex"), TEXT("get copy array")},
	{TEXT("getelementatindex"), TEXT("get copy array")},
	{TEXT("arrayappend"), TEXT("append array")},
	{TEXT("getclassofobject"), TEXT("get class")},
	{TEXT("getdisplaynameofobject"), TEXT("get display name")},
	{TEXT("getnameofobject"), TEXT("get object name")},
	{TEXT("dontime"), TEXT("do n")},
	{TEXT("makecharacterjump"), TEXT("jump")},
	{TEXT("characterjump"), TEXT("jump")},
	{TEXT("disablecollision"), TEXT("set actor enable collision")},
	{TEXT("enablecollision"), TEXT("set actor enable collision")},
	{TEXT("getcurrentlocation"), TEXT("get actor location")},
	{TEXT("getplayerlocation"), TEXT("get actor location")},
	{TEXT("setmousecursorvisible"), TEXT("set show mouse cursor")},
	{TEXT("enablemousecursor"), TEXT("set show mouse cursor")},
	{TEXT("if"), TEXT("branch")},
	{TEXT("ifelse"), TEXT("branch")},
	{TEXT("ifthen"), TEXT("branch")},
	{TEXT("ifthenelse"), TEXT("branch")},
	{TEXT("ifstatement"), TEXT("branch")},
	{TEXT("ifcondition"), TEXT("branch")},
	{TEXT("ifbranch"), TEXT("branch")},
	{TEXT("iftrue"), TEXT("branch")},
	{TEXT("checkcondition"), TEXT("branch")},
	{TEXT("branchif"), TEXT("branch")},
	{TEXT("conditional"), TEXT("branch")},
	{TEXT("conditionalbranch"), TEXT("branch")},
	{TEXT("checkvalid"), TEXT("is valid")},
	{TEXT("checkifvalid"), TEXT("is valid")},
	{TEXT("checkisvalid"), TEXT("is valid")},
	{TEXT("isobjectvalid"), TEXT("is valid")},
	{TEXT("isvalidobject"), TEXT("is valid")},
	{TEXT("isactorvalid"), TEXT("is valid")},
	{TEXT("nullcheck"), TEXT("is valid")},
	{TEXT("isnotnull"), TEXT("is valid")},
	{TEXT("foreachactorinarray"), TEXT("for each loop")},
	{TEXT("foreachitem"), TEXT("for each loop")},
	{TEXT("foreachelement"), TEXT("for each loop")},
	{TEXT("foreachiteminarray"), TEXT("for each loop")},
	{TEXT("foreachelementinarray"), TEXT("for each loop")},
	{TEXT("foreacharray"), TEXT("for each loop")},
	{TEXT("foreach"), TEXT("for each loop")},
	{TEXT("arrayloop"), TEXT("for each loop")},
	{TEXT("loopoverarray"), TEXT("for each loop")},
	{TEXT("loopforeach"), TEXT("for each loop")},
	{TEXT("iteratethrougharray"), TEXT("for each loop")},
	{TEXT("forloopwithindex"), TEXT("for loop")},
	{TEXT("linetracesingle"), TEXT("line trace by channel")},
	{TEXT("linetracesinglebychannel"), TEXT("line trace by channel")},
	{TEXT("linetracemulti"), TEXT("multi line trace by channel")},
	{TEXT("linetrace"), TEXT("line trace by channel")},
	{TEXT("raycast"), TEXT("line trace by channel")},
	{TEXT("castray"), TEXT("line trace by channel")},
	{TEXT("linetracesingleforobject"), TEXT("line trace for object")},
	{TEXT("linetraceforobjecttype"), TEXT("line trace for object")},
	{TEXT("spheretracesingle"), TEXT("sphere trace by channel")},
	{TEXT("spheretracemulti"), TEXT("multi sphere trace by channel")},
	{TEXT("spheretrace"), TEXT("sphere trace by channel")},
	{TEXT("spheretracesingleforobject"), TEXT("sphere trace for object")},
	{TEXT("boxtracesingle"), TEXT("box trace by channel")},
	{TEXT("boxtrace"), TEXT("box trace by channel")},
	{TEXT("capsuletracesingle"), TEXT("capsule trace by channel")},
	{TEXT("capsuletrace"), TEXT("capsule trace by channel")},
	{TEXT("deltatime"), TEXT("get world delta second")},
	{TEXT("deltasecond"), TEXT("get world delta second")},
	{TEXT("getcomponentlocation"), TEXT("get world location")},
	{TEXT("getcomponentrotation"), TEXT("get world rotation")},
	{TEXT("getcomponenttransform"), TEXT("get world transform")},
	{TEXT("naturallog"), TEXT("log")},
	{TEXT("ceiltointeger"), TEXT("ceil")},
	{TEXT("floortointeger"), TEXT("floor")},
	{TEXT("roundtointeger"), TEXT("round")},
	{TEXT("roundtonearestinteger"), TEXT("round")},
	{TEXT("truncatetointeger"), TEXT("truncate")},
	{TEXT("findcomponentbyclass"), TEXT("get component by class")},
	{TEXT("findactorofclass"), TEXT("get actor of class")},
	{TEXT("findactorbyclass"), TEXT("get actor of class")},
	{TEXT("findallactorofclass"), TEXT("get all actor of class")},
	{TEXT("getdistancetoactor"), TEXT("get distance to")},
	{TEXT("distancetoactor"), TEXT("get distance to")},
	{TEXT("distancebetweenactor"), TEXT("get distance to")},
	{TEXT("addwidgettoviewport"), TEXT("add to view port")},
	{TEXT("charactermovement"), TEXT("get character movement")},
	{TEXT("charactermovementcomponent"), TEXT("get character movement")},
	{TEXT("getcharactermovementcomponent"), TEXT("get character movement")},
	{TEXT("tolowercase"), TEXT("to lower")},
	{TEXT("touppercase"), TEXT("to upper")},
	{TEXT("lowercase"), TEXT("to lower")},
	{TEXT("uppercase"), TEXT("to upper")},
	{TEXT("stringlength"), TEXT("len")},
	{TEXT("getstringlength"), TEXT("len")},
	{TEXT("lengthofstring"), TEXT("len")},
	{TEXT("containssubstring"), TEXT("contain string")},
	{TEXT("containsubstring"), TEXT("contain string")},
	{TEXT("stringcontain"), TEXT("contain string")},
	{TEXT("arrayget"), TEXT("get copy array")},
	{TEXT("getarrayelement"), TEXT("get copy array")},
	{TEXT("getarrayitem"), TEXT("get copy array")},
	{TEXT("getfromarray"), TEXT("get copy array")},
	{TEXT("getitemfromarray"), TEXT("get copy array")},
	{TEXT("percentintegerinteger"), TEXT("modulo integer")},
	{TEXT("percentfloatfloat"), TEXT("modulo float")},
	{TEXT("createcustomevent"), TEXT("add custom event")},
	{TEXT("customevent"), TEXT("add custom event")},
	{TEXT("newcustomevent"), TEXT("add custom event")},
	{TEXT("getrefself"), TEXT("get reference to self")},
	{TEXT("getreferenceself"), TEXT("get reference to self")},
	{TEXT("this"), TEXT("get reference to self")},
	{TEXT("spawnobjectactor"), TEXT("spawn actor from class")},
	{TEXT("createactor"), TEXT("spawn actor from class")},
	{TEXT("spawnblueprint"), TEXT("spawn actor from class")},
	{TEXT("instantiateactor"), TEXT("spawn actor from class")},
	{TEXT("addwidgettoscreen"), TEXT("add to view port")},
	{TEXT("addtoscreen"), TEXT("add to view port")},
	{TEXT("showwidget"), TEXT("add to view port")},
	{TEXT("reroutenode"), TEXT("add reroute")},
	{TEXT("reroute"), TEXT("add reroute")},
	{TEXT("timeline"), TEXT("add timeline")},
	{TEXT("createtimeline"), TEXT("add timeline")},
	{TEXT("executesequence"), TEXT("sequence")},
	{TEXT("executionsequence"), TEXT("sequence")},
	{TEXT("thensequence"), TEXT("sequence")},
	{TEXT("createwidgetblueprint"), TEXT("create widget")},
	{TEXT("lerpfloat"), TEXT("lerp")},
	{TEXT("linearinterpolate"), TEXT("lerp")},
	{TEXT("linearinterpolation"), TEXT("lerp")},
	{TEXT("branchelse"), TEXT("branch")},
	{TEXT("branchthen"), TEXT("branch")},
	{TEXT("branchthenelse"), TEXT("branch")},
	{TEXT("branchstatement"), TEXT("branch")},
	{TEXT("branchcondition"), TEXT("branch")},
	{TEXT("condition"), TEXT("branch")},
	{TEXT("loop"), TEXT("for loop")},
	{TEXT("for"), TEXT("for loop")},
	{TEXT("while"), TEXT("while loop")},
	{TEXT("loopthrougharray"), TEXT("for each loop")},
	{TEXT("looparray"), TEXT("for each loop")},
	{TEXT("iteratearray"), TEXT("for each loop")},
	{TEXT("iterateoverarray"), TEXT("for each loop")},
	{TEXT("wait"), TEXT("delay")},
	{TEXT("waitsecond"), TEXT("delay")},
	{TEXT("waitforsecond"), TEXT("delay")},
	{TEXT("delaysecond"), TEXT("delay")},
	{TEXT("delayforsecond"), TEXT("delay")},
	{TEXT("sleep"), TEXT("delay")},
	{TEXT("print"), TEXT("print string")},
	{TEXT("printtextonscreen"), TEXT("print string")},
	{TEXT("printtexttoscreen"), TEXT("print string")},
	{TEXT("printonscreen"), TEXT("print string")},
	{TEXT("printtoscreen"), TEXT("print string")},
	{TEXT("printstringonscreen"), TEXT("print string")},
	{TEXT("printstringtoscreen"), TEXT("print string")},
	{TEXT("printmessage"), TEXT("print string")},
	{TEXT("printmessageonscreen"), TEXT("print string")},
	{TEXT("printmessagetoscreen"), TEXT("print string")},
	{TEXT("printdebugmessage"), TEXT("print string")},
	{TEXT("printtolog"), TEXT("print string")},
	{TEXT("displaytextonscreen"), TEXT("print string")},
	{TEXT("showtextonscreen"), TEXT("print string")},
	{TEXT("showmessageonscreen"), TEXT("print string")},
	{TEXT("displaymessageonscreen"), TEXT("print string")},
	{TEXT("debugprint"), TEXT("print string")},
	{TEXT("logmessage"), TEXT("print string")},
	{TEXT("everyframe"), TEXT("event tick")},
	{TEXT("onupdate"), TEXT("event tick")},
	{TEXT("ontick"), TEXT("event tick")},
	{TEXT("onbeginplay"), TEXT("event begin play")},
	{TEXT("ongamestart"), TEXT("event begin play")},
	{TEXT("gamestart"), TEXT("event begin play")},
	{TEXT("onstart"), TEXT("event begin play")},
	{TEXT("whengamestart"), TEXT("event begin play")},
	{TEXT("self"), TEXT("get reference to self")},
	{TEXT("getself"), TEXT("get reference to self")},
	{TEXT("selfreference"), TEXT("get reference to self")},
	{TEXT("referencetoself"), TEXT("get reference to self")},
	{TEXT("thisactor"), TEXT("get reference to self")},
	{TEXT("comment"), TEXT("add comment")},
	{TEXT("commentbox"), TEXT("add comment")},
	{TEXT("spawnactor"), TEXT("spawn actor from class")},
	{TEXT("destroyself"), TEXT("destroy actor")},
	{TEXT("and"), TEXT("and boolean")},
	{TEXT("or"), TEXT("or boolean")},
	{TEXT("not"), TEXT("not boolean")},
	{TEXT("concat"), TEXT("append")},
	{TEXT("concatenate"), TEXT("append")},
	{TEXT("concatstring"), TEXT("append")},
	{TEXT("concatenatestring"), TEXT("append")},
	{TEXT("joinstring"), TEXT("append")},
	{TEXT("teleportactor"), TEXT("teleport")},
	{TEXT("custommathexpression"), TEXT("add math expression")},
	{TEXT("mathexpression"), TEXT("add math expression")},
};

/** Node classes that stand behind many titles: what is asked for is then in the title alone. */
constexpr const TCHAR* FamilyClasses[] = {TEXT("CallFunction"), TEXT("CallArrayFunction"),
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

constexpr float ConnectorWeight = 0.15f;
constexpr float CommonWeight = 0.35f;
constexpr float OwnerWeight = 0.5f;

/** Words that join others. */
constexpr const TCHAR* Connectors[] = {TEXT("of"), TEXT("on"), TEXT("in"), TEXT("at"), TEXT("by"), TEXT("for"),
	TEXT("from"), TEXT("with"), TEXT("as"), TEXT("and"), TEXT("into"), TEXT("onto"), TEXT("call"), TEXT("when"),
	TEXT("this"), TEXT("that"), TEXT("current"), TEXT("one"), TEXT("second"), TEXT("if"), TEXT("new"), TEXT("using"),
	TEXT("use"), TEXT("via"), TEXT("it"), TEXT("all"), TEXT("two"), TEXT("both")};

/** Words that say whose the thing is, in hundreds of titles as well. */
constexpr const TCHAR* Owners[] = {TEXT("actor"), TEXT("component"), TEXT("widget"), TEXT("function")};

/** Between other words these say nothing. */
constexpr const TCHAR* Joints[] = {TEXT("of"), TEXT("on"), TEXT("in"), TEXT("at"), TEXT("by"), TEXT("for"),
	TEXT("from"), TEXT("with"), TEXT("as"), TEXT("into"), TEXT("onto"), TEXT("to"), TEXT("this"), TEXT("that"),
	TEXT("using")};

constexpr const TCHAR* TypeWords[] = {TEXT("float"), TEXT("integer"), TEXT("integer64"), TEXT("boolean"),
	TEXT("vector"), TEXT("2d"), TEXT("rotator"), TEXT("transform"), TEXT("string"), TEXT("name"), TEXT("text"),
	TEXT("byte"), TEXT("object"), TEXT("color"), TEXT("class")};

struct FPrior
{
	const TCHAR* Keyword;
	int32 Prior;
};

/** Words that are not here count one. */
constexpr FPrior Priors[] = {
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
	{TEXT("k2node_macroinstance"), 0},
};

/** Words of hundreds of titles; the types among them only say which of several like nodes is meant. */
constexpr const TCHAR* CommonWords[] = {TEXT("get"), TEXT("set"), TEXT("event"), TEXT("is"), TEXT("to"), TEXT("has"),
	TEXT("ha"), TEXT("can"), TEXT("do"), TEXT("or"), TEXT("not"), TEXT("kismet"), TEXT("library"), TEXT("system"),
	TEXT("utility"), TEXT("target"), TEXT("make"), TEXT("break"), TEXT("then"), TEXT("else"), TEXT("self"),
	TEXT("value"), TEXT("float"), TEXT("integer"), TEXT("integer64"), TEXT("boolean"), TEXT("vector"), TEXT("2d"),
	TEXT("rotator"), TEXT("transform"), TEXT("string"), TEXT("name"), TEXT("text"), TEXT("byte"), TEXT("object"),
	TEXT("class"), TEXT("struct"), TEXT("array"), TEXT("map"), TEXT("reference")};

/** Words of the menu that have near neighbours in it ("point" and "print"): as they stand they are meant, never a slip.
 */
constexpr const TCHAR* WellKnown[] = {TEXT("absolute"), TEXT("action"), TEXT("actor"), TEXT("angle"), TEXT("animation"),
	TEXT("array"), TEXT("attach"), TEXT("audio"), TEXT("axis"), TEXT("back"), TEXT("begin"), TEXT("blend"),
	TEXT("bone"), TEXT("boolean"), TEXT("bottom"), TEXT("branch"), TEXT("break"), TEXT("button"), TEXT("byte"),
	TEXT("camera"), TEXT("cast"), TEXT("center"), TEXT("channel"), TEXT("character"), TEXT("child"), TEXT("class"),
	TEXT("clear"), TEXT("close"), TEXT("collision"), TEXT("color"), TEXT("component"), TEXT("controller"),
	TEXT("count"), TEXT("create"), TEXT("curve"), TEXT("damage"), TEXT("data"), TEXT("debug"), TEXT("delay"),
	TEXT("delegate"), TEXT("destroy"), TEXT("detach"), TEXT("direction"), TEXT("disable"), TEXT("distance"),
	TEXT("draw"), TEXT("each"), TEXT("enable"), TEXT("enum"), TEXT("equal"), TEXT("event"), TEXT("field"),
	TEXT("filter"), TEXT("find"), TEXT("finish"), TEXT("float"), TEXT("focus"), TEXT("force"), TEXT("forward"),
	TEXT("frame"), TEXT("front"), TEXT("game"), TEXT("gate"), TEXT("greater"), TEXT("group"), TEXT("health"),
	TEXT("height"), TEXT("image"), TEXT("impulse"), TEXT("index"), TEXT("input"), TEXT("instance"), TEXT("integer"),
	TEXT("item"), TEXT("layer"), TEXT("left"), TEXT("length"), TEXT("less"), TEXT("level"), TEXT("light"),
	TEXT("limit"), TEXT("line"), TEXT("link"), TEXT("list"), TEXT("load"), TEXT("local"), TEXT("location"),
	TEXT("lock"), TEXT("loop"), TEXT("make"), TEXT("mass"), TEXT("material"), TEXT("mesh"), TEXT("mode"),
	TEXT("montage"), TEXT("mouse"), TEXT("name"), TEXT("object"), TEXT("offset"), TEXT("owner"), TEXT("parameter"),
	TEXT("parent"), TEXT("path"), TEXT("pause"), TEXT("pawn"), TEXT("play"), TEXT("player"), TEXT("point"),
	TEXT("position"), TEXT("print"), TEXT("profile"), TEXT("radius"), TEXT("random"), TEXT("range"), TEXT("rate"),
	TEXT("relative"), TEXT("remove"), TEXT("request"), TEXT("reset"), TEXT("result"), TEXT("right"), TEXT("root"),
	TEXT("rotation"), TEXT("rotator"), TEXT("save"), TEXT("scale"), TEXT("scene"), TEXT("screen"), TEXT("select"),
	TEXT("sequence"), TEXT("shape"), TEXT("size"), TEXT("slider"), TEXT("slot"), TEXT("socket"), TEXT("sound"),
	TEXT("source"), TEXT("space"), TEXT("speed"), TEXT("sphere"), TEXT("spline"), TEXT("spring"), TEXT("sprint"),
	TEXT("stage"), TEXT("start"), TEXT("state"), TEXT("static"), TEXT("status"), TEXT("stop"), TEXT("string"),
	TEXT("struct"), TEXT("switch"), TEXT("table"), TEXT("target"), TEXT("task"), TEXT("text"), TEXT("texture"),
	TEXT("tick"), TEXT("time"), TEXT("timer"), TEXT("touch"), TEXT("trace"), TEXT("track"), TEXT("transform"),
	TEXT("tree"), TEXT("type"), TEXT("valid"), TEXT("value"), TEXT("variable"), TEXT("vector"), TEXT("velocity"),
	TEXT("view"), TEXT("visibility"), TEXT("visible"), TEXT("volume"), TEXT("weight"), TEXT("widget"), TEXT("width"),
	TEXT("world")};
} // namespace KeywordWordTables

namespace KeywordWordImpl
{
using namespace KeywordWordTables;

/** The tables by word; built once. Keys compare ignoring case. */
struct FLookup
{
	TMap<FString, TArray<FString>> Spelling;
	TMap<FString, TArray<FString>> Shorthand;
	TSet<FString> Filler;
	TSet<FString> Family;
	TMap<FString, float> Weight;
	TMap<FString, int32> Prior;
	TSet<FString> Joint;
	TSet<FString> Type;
	TSet<FString> Known;

	static const FLookup& Get()
	{
		static const FLookup Lookup;
		return Lookup;
	}

private:
	FLookup()
	{
		for (const FSpelling& Row : Spellings)
		{
			FString(Row.Means).ParseIntoArrayWS(Spelling.Add(Row.Word));
		}
		for (const FSpelling& Row : Shorthands)
		{
			FString(Row.Means).ParseIntoArrayWS(Shorthand.Add(Row.Word));
		}
		for (const TCHAR* const Word : Fillers)
		{
			Filler.Add(Word);
		}
		for (const TCHAR* const ClassName : FamilyClasses)
		{
			Family.Add(ClassName);
		}
		for (const TCHAR* const Word : WellKnown)
		{
			Known.Add(Word);
		}
		for (const FPrior& Row : Priors)
		{
			Prior.Add(Row.Keyword, Row.Prior);
		}
		for (const TCHAR* const Word : Joints)
		{
			Joint.Add(Word);
		}
		for (const TCHAR* const Word : TypeWords)
		{
			Type.Add(Word);
		}
		for (const TCHAR* const Word : Owners)
		{
			Weight.Add(Word, OwnerWeight);
		}
		for (const TCHAR* const Word : Connectors)
		{
			Weight.Add(Word, ConnectorWeight);
		}
		for (const TCHAR* const Word : CommonWords)
		{
			Weight.Add(Word, CommonWeight);
		}
	}
};

FString Singular(const FString& Word)
{
	if (Word.Len() < 4 || !Word.EndsWith(TEXT("s"), ESearchCase::CaseSensitive))
	{
		return Word;
	}
	if (Word.Len() > 4 && Word.EndsWith(TEXT("ies"), ESearchCase::CaseSensitive))
	{
		return Word.LeftChop(3) + TEXT("y");
	}
	for (const TCHAR* const Ending : {TEXT("sses"), TEXT("xes"), TEXT("ches"), TEXT("shes")})
	{
		if (Word.EndsWith(Ending, ESearchCase::CaseSensitive))
		{
			return Word.LeftChop(2);
		}
	}
	for (const TCHAR* const Ending : {TEXT("ss"), TEXT("us"), TEXT("is")})
	{
		if (Word.EndsWith(Ending, ESearchCase::CaseSensitive))
		{
			return Word;
		}
	}
	return Word.LeftChop(1);
}

/** Adds a raw word in its one spelling. */
void AddWord(FStringView Raw, bool bKeepPlurals, TArray<FString>& OutWords)
{
	const FLookup& Lookup = FLookup::Get();
	const FString Lower = FString(Raw).ToLower();
	if (Lookup.Filler.Contains(Lower))
	{
		return;
	}
	if (const TArray<FString>* const Spelled = Lookup.Spelling.Find(Lower))
	{
		OutWords.Append(*Spelled);
		return;
	}
	const FString Single = bKeepPlurals ? Lower : Singular(Lower);
	if (const TArray<FString>* const Spelled = Lookup.Spelling.Find(Single))
	{
		OutWords.Append(*Spelled);
		return;
	}
	if (!Lookup.Filler.Contains(Single))
	{
		OutWords.Add(Single);
	}
}

/** "UKismetSystemLibrary", "AActor", "FVector": one type letter before a capital that begins a word. */
bool HasTypeLetter(FStringView Run)
{
	int32 Index = INDEX_NONE;
	return Run.Len() > 2 && FStringView(TEXT("UAFEIT")).FindChar(Run[0], Index) && FChar::IsUpper(Run[1])
		&& FChar::IsLower(Run[2]);
}

/** Whether a word of a run of letters and digits ends before this index. */
bool IsWordBoundary(FStringView Run, int32 Index)
{
	const TCHAR Before = Run[Index - 1];
	const TCHAR At = Run[Index];
	const bool bLowerFollows = Index + 1 < Run.Len() && FChar::IsLower(Run[Index + 1]);
	if (FChar::IsDigit(Before) && (At == TEXT('D') || At == TEXT('d')))
	{
		return bLowerFollows; // "2D" is one word
	}
	if (FChar::IsDigit(Before) != FChar::IsDigit(At))
	{
		return true;
	}
	return FChar::IsUpper(At) && (FChar::IsLower(Before) || (FChar::IsUpper(Before) && bLowerFollows));
}

void SplitRun(FStringView Run, bool bKeepPlurals, TArray<FString>& OutWords)
{
	const FString Lower = FString(Run).ToLower();
	if (FLookup::Get().Spelling.Contains(Lower))
	{
		AddWord(Run, bKeepPlurals, OutWords); // "FlipFlop" and "Int32" are known as they stand
		return;
	}
	int32 Start = HasTypeLetter(Run) ? 1 : 0;
	for (int32 Index = Start + 1; Index < Run.Len(); ++Index)
	{
		if (IsWordBoundary(Run, Index))
		{
			AddWord(Run.Mid(Start, Index - Start), bKeepPlurals, OutWords);
			Start = Index;
		}
	}
	AddWord(Run.Mid(Start), bKeepPlurals, OutWords);
}

/** Reads one sign and answers its length; what is no operator separates and has length one. */
int32 ReadSign(FStringView Text, int32 Index, TArray<FString>& OutWords)
{
	int32 Known = INDEX_NONE;
	if (!FStringView(TEXT("<>-+=!&|*%/~^")).FindChar(Text[Index], Known))
	{
		return 1;
	}
	for (const FSign& Row : Signs)
	{
		const FStringView Sign(Row.Sign);
		if (!Text.Mid(Index, Sign.Len()).Equals(Sign, ESearchCase::CaseSensitive))
		{
			continue;
		}
		const int32 End = Index + Sign.Len();
		const bool bRoomBefore = Index == 0 || FChar::IsWhitespace(Text[Index - 1]);
		const bool bRoomAfter = End == Text.Len() || FChar::IsWhitespace(Text[End]);
		if (!Row.bNeedsRoom || (bRoomBefore && bRoomAfter))
		{
			TArray<FString> Words;
			FString(Row.Means).ParseIntoArrayWS(Words);
			OutWords.Append(Words);
		}
		return Sign.Len();
	}
	return 1;
}

/** What stands behind "Node_" in a node class name, empty for any other text. */
FStringView GetNodeClassStem(FStringView Text)
{
	const FStringView Marker(TEXT("Node_"));
	int32 Underscore = INDEX_NONE;
	if (!Text.FindChar(TEXT('_'), Underscore) || Underscore < Marker.Len()
		|| !Text.Left(Underscore + 1).EndsWith(Marker, ESearchCase::IgnoreCase))
	{
		return FStringView();
	}
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		if (!FChar::IsIdentifier(Text[Index]))
		{
			return FStringView();
		}
	}
	return Text.Mid(Underscore + 1);
}

/** What the words as a whole stand for, whatever numbers are among them; null when they are no shorthand. */
const TArray<FString>* FindShorthand(const TArray<FString>& Words)
{
	FString Joined;
	for (const FString& Word : Words)
	{
		if (!Word.IsNumeric())
		{
			Joined += Word;
		}
	}
	return FLookup::Get().Shorthand.Find(Joined);
}
} // namespace KeywordWordImpl

TArray<FString> KeywordWords::Split(FStringView Text, bool bKeepPlurals)
{
	TArray<FString> Words;
	int32 Index = Text.StartsWith(TEXT("K2_"), ESearchCase::CaseSensitive) ? 3 : 0;
	while (Index < Text.Len())
	{
		if (Text.Mid(Index, 2).Equals(TEXT("'s"), ESearchCase::IgnoreCase))
		{
			Index += 2; // "the actor's location"
			continue;
		}
		if (!FChar::IsAlnum(Text[Index]))
		{
			Index += KeywordWordImpl::ReadSign(Text, Index, Words);
			continue;
		}
		const int32 Start = Index;
		while (Index < Text.Len() && FChar::IsAlnum(Text[Index]))
		{
			++Index;
		}
		KeywordWordImpl::SplitRun(Text.Mid(Start, Index - Start), bKeepPlurals, Words);
	}
	return Words;
}

bool KeywordWords::HasTypeLetter(FStringView Text)
{
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		const bool bBegins = FChar::IsAlnum(Text[Index]) && (Index == 0 || !FChar::IsAlnum(Text[Index - 1]));
		if (bBegins && KeywordWordImpl::HasTypeLetter(Text.Mid(Index)))
		{
			return true;
		}
	}
	return false;
}

TArray<FString> KeywordWords::ExpandShorthand(TArray<FString> Words)
{
	const TArray<FString>* const Meaning = KeywordWordImpl::FindShorthand(Words);
	return Meaning ? *Meaning : MoveTemp(Words);
}

bool KeywordWords::IsShorthand(const TArray<FString>& Words)
{
	return KeywordWordImpl::FindShorthand(Words) != nullptr;
}

bool KeywordWords::IsNodeClassName(FStringView Text)
{
	return !KeywordWordImpl::GetNodeClassStem(Text).IsEmpty();
}

TArray<FString> KeywordWords::SplitNodeClassName(FStringView ClassName)
{
	return IsFamilyClassName(ClassName) ? TArray<FString>() : Split(KeywordWordImpl::GetNodeClassStem(ClassName));
}

bool KeywordWords::IsFamilyClassName(FStringView ClassName)
{
	return KeywordWordImpl::FLookup::Get().Family.Contains(FString(KeywordWordImpl::GetNodeClassStem(ClassName)));
}

float KeywordWords::GetWeight(const FString& Word)
{
	const float* const Weight = KeywordWordImpl::FLookup::Get().Weight.Find(Word);
	if (!Weight && Word.IsNumeric())
	{
		return KeywordWordTables::ConnectorWeight; // a value, for which there is a pin
	}
	return Weight ? *Weight : 1.0f;
}

int32 KeywordWords::GetPrior(const FString& Keyword)
{
	if (Keyword.StartsWith(TEXT("="), ESearchCase::CaseSensitive))
	{
		return 0;
	}
	const int32* const Prior = KeywordWordImpl::FLookup::Get().Prior.Find(Keyword);
	return Prior ? *Prior : 1;
}

bool KeywordWords::IsJoint(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Joint.Contains(Word);
}

bool KeywordWords::IsTypeWord(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Type.Contains(Word);
}

bool KeywordWords::IsWellKnown(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Known.Contains(Word);
}
