// What a fuzzer found worth keeping, fed to it once more.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(Corpus, HoldsForEveryFile)
{
    const QDir corpus(QStringLiteral(KT_CORPUS_DIR));
    const QStringList names = corpus.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const QByteArray bytes = file.readAll();
        const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.constData());
        EXPECT_EQ(LLVMFuzzerTestOneInput(data, static_cast<std::size_t>(bytes.size())), 0)
            << name.toStdString();
    }
}
