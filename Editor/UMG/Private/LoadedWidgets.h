#pragma once

/** The rules for what panels hold. */
void AddWidgetStructureCheck();
