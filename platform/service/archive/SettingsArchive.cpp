#include "platform/service/archive/SettingsArchive.h"

#include "platform/service/archive/Seal.h"

#include <archive.h>
#include <archive_entry.h>
#include <memory>

namespace zeqd {

namespace {

constexpr const char* kMember = "settings.json";
constexpr std::size_t kChunk = 64U << 10;

struct ReadFree {
    void operator()(archive* reader) const { archive_read_free(reader); }
};
struct WriteFree {
    void operator()(archive* writer) const { archive_write_free(writer); }
};
struct EntryFree {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

la_ssize_t append(archive*, void* target, const void* bytes, std::size_t length) {
    static_cast<std::string*>(target)->append(static_cast<const char*>(bytes), length);
    return static_cast<la_ssize_t>(length);
}

std::optional<std::string> compress(std::string_view settings) {
    std::string file;
    const std::unique_ptr<archive, WriteFree> writer(archive_write_new());
    archive_write_add_filter_gzip(writer.get());
    archive_write_set_format_ustar(writer.get());
    archive_write_set_bytes_in_last_block(writer.get(), 1);
    if (archive_write_open(writer.get(), &file, nullptr, append, nullptr) != ARCHIVE_OK) return std::nullopt;
    const std::unique_ptr<archive_entry, EntryFree> entry(archive_entry_new());
    archive_entry_set_pathname(entry.get(), kMember);
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(settings.size()));
    if (archive_write_header(writer.get(), entry.get()) != ARCHIVE_OK) return std::nullopt;
    if (archive_write_data(writer.get(), settings.data(), settings.size()) !=
        static_cast<la_ssize_t>(settings.size()))
        return std::nullopt;
    if (archive_write_close(writer.get()) != ARCHIVE_OK) return std::nullopt;
    return file;
}

/// The member's bytes, as long as they stay within the limit. The size that its header tells is not believed.
std::optional<std::string> readMember(archive* reader) {
    std::string bytes;
    std::string chunk(kChunk, '\0');
    la_ssize_t got;
    while ((got = archive_read_data(reader, chunk.data(), chunk.size())) > 0) {
        if (bytes.size() + static_cast<std::size_t>(got) > kMaxSettings) return std::nullopt;
        bytes.append(chunk, 0, static_cast<std::size_t>(got));
    }
    return got == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<std::string> decompress(std::string_view file) {
    const std::unique_ptr<archive, ReadFree> reader(archive_read_new());
    archive_read_support_filter_gzip(reader.get());
    archive_read_support_format_tar(reader.get());
    if (archive_read_open_memory(reader.get(), file.data(), file.size()) != ARCHIVE_OK) return std::nullopt;
    std::optional<std::string> settings;
    archive_entry* entry;
    int result;
    while ((result = archive_read_next_header(reader.get(), &entry)) == ARCHIVE_OK) {
        const char* name = archive_entry_pathname(entry);
        if (settings || !name || std::string_view(name) != kMember ||
            archive_entry_filetype(entry) != AE_IFREG || archive_entry_hardlink(entry))
            return std::nullopt;
        settings = readMember(reader.get());
        if (!settings) return std::nullopt;
    }
    return result == ARCHIVE_EOF ? settings : std::nullopt;
}

} // namespace

std::optional<std::string> packSettings(std::string_view settings, const std::string& password) {
    std::optional<std::string> file = compress(settings);
    return file && !password.empty() ? seal(*file, password) : file;
}

std::optional<std::string> unpackSettings(std::string_view file, const std::string& password,
                                          std::string& why) {
    std::optional<std::string> opened;
    if (isSealed(file)) {
        opened = unseal(file, password);
        why = "service.detail.settings_password";
        if (!opened) return std::nullopt;
        file = *opened;
    }
    std::optional<std::string> settings = decompress(file);
    why = settings ? "" : "service.detail.settings_foreign";
    return settings;
}

} // namespace zeqd
