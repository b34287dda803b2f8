#include "support/ZipMaker.h"

#include <archive.h>
#include <archive_entry.h>

ZipEntries madeBundle(const QByteArray &program)
{
    return {{"Kesmira.app/Contents/MacOS/kesmira", program},
            {"Kesmira.app/Contents/Resources/a.txt", "new", ZipEntry::Plain},
            {"Kesmira.app/Contents/current", {}, ZipEntry::Link, "Resources/a.txt"}};
}

QByteArray zipOf(const ZipEntries &entries)
{
    QByteArray zip(1 << 20, '\0');
    size_t used = 0;
    archive *writer = archive_write_new();
    archive_write_set_format_zip(writer);
    archive_write_open_memory(writer, zip.data(), size_t(zip.size()), &used);
    for (const ZipEntry &each : entries) {
        archive_entry *entry = archive_entry_new();
        archive_entry_set_pathname(entry, each.path.constData());
        archive_entry_set_filetype(entry, each.kind == ZipEntry::Link ? unsigned(AE_IFLNK) : unsigned(AE_IFREG));
        archive_entry_set_perm(entry, each.kind == ZipEntry::Plain ? 0644 : 0755);
        archive_entry_set_size(entry, each.bytes.size());
        if (each.kind == ZipEntry::Link) archive_entry_set_symlink(entry, each.link.constData());
        archive_write_header(writer, entry);
        archive_write_data(writer, each.bytes.constData(), size_t(each.bytes.size()));
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    return zip.left(int(used));
}
