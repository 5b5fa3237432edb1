#pragma once

#include "CoreTypes.h"

/** The kinds of JSON value. None is a value that is none of these, and stands in no document. */
enum class EJson
{
	None,
	Null,
	String,
	Number,
	Boolean,
	Array,
	Object
};
