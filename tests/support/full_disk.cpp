#include "tests/support/full_disk.h"

#include <gtest/gtest.h>

#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
const QString fillerName = u"filler"_s;

void limitFiles(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}
}  // namespace

FullDisk::FullDisk() {
  const QByteArray size = "size=" + QByteArray::number((mostBlocks + 1) * blockSize);
  isMounted_ = mount("tmpfs", folder_.path().toLocal8Bit().constData(), "tmpfs", 0, size.constData()) == 0;
  if (!isMounted_) std::signal(SIGXFSZ, SIG_IGN);
}

FullDisk::~FullDisk() {
  if (isMounted_)
    EXPECT_EQ(umount2(folder_.path().toLocal8Bit().constData(), MNT_DETACH), 0);
  else
    limitFiles(RLIM_INFINITY);
}

QStringList FullDisk::files() const {
  QStringList names = QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden);
  names.removeAll(fillerName);
  return names;
}

void FullDisk::leave(int blocks) {
  if (!isMounted_) {
    limitFiles(blocks == mostBlocks ? RLIM_INFINITY : rlim_t(blocks) * blockSize);
    return;
  }
  QFile::remove(path(fillerName));
  if (blocks == mostBlocks) return;
  const int file = open(path(fillerName).toLocal8Bit().constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
  const QByteArray block(blockSize, 'x');
  off_t size = 0;
  while (write(file, block.constData(), blockSize) == blockSize) size += blockSize;
  ASSERT_GE(size, off_t(blocks) * blockSize);
  ASSERT_EQ(ftruncate(file, size - off_t(blocks) * blockSize), 0);
  close(file);
}
