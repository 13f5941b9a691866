#pragma once

// Template documents reach the word processor through the Platform's shell
// execute, so that a host's Platform (or a test's) sees every launch.
namespace TemplateDocuments {
// Points the data library's document launcher at Platform::Current(). Called
// by the template controls; calling it again changes nothing.
void RouteThroughPlatform();
} // namespace TemplateDocuments
