// A qemu plugin that counts the instructions that a program executes, and prints the number at its end:
//   qemu-aarch64 -plugin libinstruction_counter.so -d plugin PROGRAM
// The functions of qemu are declared here (version 1 of the interface), because Debian does not package the header.

#include <cinttypes>
#include <cstdint>
#include <cstdio>

extern "C" {

struct qemu_plugin_tb;
enum QemuPluginOperation : int { addU64 = 0 };

std::size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb* block);
void qemu_plugin_register_vcpu_tb_trans_cb(std::uint64_t id,
                                           void (*translated)(std::uint64_t, qemu_plugin_tb*));
void qemu_plugin_register_vcpu_tb_exec_inline(qemu_plugin_tb* block, QemuPluginOperation operation,
                                              void* counter, std::uint64_t operand);
void qemu_plugin_register_atexit_cb(std::uint64_t id, void (*ends)(std::uint64_t, void*), void* data);
void qemu_plugin_outs(const char* text);

[[gnu::visibility("default")]] extern int qemu_plugin_version;
int qemu_plugin_version = 1;

[[gnu::visibility("default")]] int qemu_plugin_install(std::uint64_t id, const void* info, int count,
                                                       char** values);
}

namespace {

// Exact for a single-threaded program; several threads would lose increments.
std::uint64_t instructions = 0;

void countBlock(std::uint64_t, qemu_plugin_tb* block) {
    qemu_plugin_register_vcpu_tb_exec_inline(block, addU64, &instructions, qemu_plugin_tb_n_insns(block));
}

void print(std::uint64_t, void*) {
    char line[64];
    std::snprintf(line, sizeof line, "instructions %" PRIu64 "\n", instructions);
    qemu_plugin_outs(line);
}

}  // namespace

int qemu_plugin_install(std::uint64_t id, const void*, int, char**) {
    qemu_plugin_register_vcpu_tb_trans_cb(id, countBlock);
    qemu_plugin_register_atexit_cb(id, print, nullptr);
    return 0;
}
