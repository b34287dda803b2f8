// FileUtil: shows JPEGs and HEICs in a panel, or writes what the panel would show.

#include "fileutil/FileUtil.h"

int main(int argc, char **argv)
{
    return runFileUtil(argc, argv);
}
