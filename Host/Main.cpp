#include "Cli/CommandLine.h"
#include "Session/EditorSession.h"

int main(int NumWords, char** Words)
{
	const FResultOutput Output;
	return RunCommandLine(std::vector<std::string>(Words + 1, Words + NumWords), Output, &MakeEditorSession);
}
