#pragma once

/// Tells the watch of the test program that the running test doesn't hang. Each start of a test
/// does so too; what a single one does for long calls it now and then.
void ReportTestProgress();
