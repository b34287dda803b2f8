// The preview program but for its main.
#pragma once

/// Exit statuses: 0 done, 1 the file gives no picture, 2 wrong usage, 3 the export can't be written.
int runFileUtil(int argc, char **argv);
