#include "ToolFace/ResultJson.h"

#include "Support/JsonText.h"

std::string ResultJson::Failure(const std::string_view Error)
{
	std::string Text = R"({"success":false,"errors":[)";
	JsonText::AppendString(Text, Error);
	return Text.append(R"(],"warnings":[],"messages":[],"data":{},"modifications":[]})");
}
