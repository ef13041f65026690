#pragma once

/// How a job of several frames ended. Its faults have been told; that it was interrupted has not.
enum class JobResult { Done, Failed, Interrupted };
