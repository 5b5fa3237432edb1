#pragma once

/** Templates by which a child Blueprint changes components of its parents, for the object system. */
namespace InheritedTemplates
{
/** Tells the object system what such a template starts from. */
void Register();
} // namespace InheritedTemplates
