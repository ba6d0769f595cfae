// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "git_folder.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>

namespace
{

using versions = QMap<QString, QString>;

const versions versions_without_git = {{"application", "v4.5.6-0-g0000000"},
                                       {"orv_infrastructure", "0000000"},
                                       {"orv_toolkit", "0000000"},
                                       {"qor", "0000000"}};

const QStringList tree_files = {"CMakeLists.txt", "orv_toolkit/a.cpp", "qor/a.cpp"};

void append_to_file(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::Append) || file.write("x") != 1)
        qFatal("can't write %s", qPrintable(path));
}

QString made_folder(const QString &path)
{
    QDir().mkpath(path);
    return path;
}

/// A source folder, with the header that the build writes beside it.
struct source_tree {
    QTemporaryDir folder;
    const git_folder git = git_folder(made_folder(folder.filePath("source")));

    void make_repository() const { git.run({"init", "--quiet"}); }

    /// Changes the files and commits them. Returns the first seven digits of the commit.
    QString commit(const QStringList &names) const
    {
        for (const QString &name : names) {
            append_to_file(path_of(name));
            git.run({"add", name});
        }
        git.run({"commit", "--quiet", "--message", "Change " + names.join(", ")});
        return git.run({"rev-parse", "HEAD"}).left(7);
    }

    /// Writes the header as the build of version 4.5.6 does.
    /// @param environment  variables that differ from the test's own
    bool write_header(const QMap<QString, QString> &environment = {}) const
    {
        return write_header_for(git.path, environment);
    }

    bool write_header_for(const QString &source_folder,
                          const QMap<QString, QString> &environment = {}) const
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString &name : environment.keys())
            variables.insert(name, environment[name]);
        QProcess cmake;
        cmake.setProcessEnvironment(variables);
        cmake.start(CMAKE_PROGRAM,
                    {"-D", "source_folder=" + source_folder, "-D", "project_version=4.5.6", "-D",
                     "header=" + header_path(), "-P", BUILD_VERSIONS_SCRIPT});
        return cmake.waitForFinished() && cmake.exitStatus() == QProcess::NormalExit &&
               cmake.exitCode() == 0 && cmake.readAllStandardError().isEmpty();
    }

    /// The versions in the header.
    versions written() const
    {
        QFile header(header_path());
        if (!header.open(QIODevice::ReadOnly))
            return {};
        static const QRegularExpression constant("(\\w+)\\[\\] = \"(.*)\";");
        versions found;
        for (auto match = constant.globalMatch(header.readAll()); match.hasNext();) {
            const QRegularExpressionMatch line = match.next();
            found[line.captured(1)] = line.captured(2);
        }
        return found;
    }

    QString path_of(const QString &name) const { return git.path + "/" + name; }
    QString header_path() const { return folder.filePath("build/versions.h"); }
};

}  // namespace

/// The script that tells the build its versions, run on source folders made for the test.
class test_build_versions : public QObject
{
    Q_OBJECT

private slots:
    void init() { tree = std::make_unique<source_tree>(); }
    void cleanup() { tree.reset(); }

    void tag_is_followed_by_the_commits_since_data();
    void tag_is_followed_by_the_commits_since();
    void nearest_tag_counts();
    void tag_of_another_form_doesnt_count_data();
    void tag_of_another_form_doesnt_count();
    void without_a_tag_all_commits_count();
    void commit_counts_only_for_its_tree_data();
    void commit_counts_only_for_its_tree();
    void uncommitted_changes_dont_matter_data();
    void uncommitted_changes_dont_matter();
    void tree_that_was_never_committed_has_zeros();
    void hash_always_has_seven_digits();
    void source_archive_has_zeros();
    void missing_git_gives_zeros();
    void repository_without_a_commit_gives_zeros();
    void folder_inside_a_repository_isnt_one();
    void repository_of_a_hook_isnt_used();
    void folder_of_a_hook_isnt_used();
    void linked_folder_is_a_repository();
    void folder_of_another_user_is_a_repository();
    void header_is_written_only_when_it_changes();

private:
    std::unique_ptr<source_tree> tree;
};

void test_build_versions::tag_is_followed_by_the_commits_since_data()
{
    QTest::addColumn<QStringList>("tag_command");
    QTest::addColumn<int>("commits_since");
    const QStringList annotated = {"tag", "--annotate", "--message", "Release", "v7.8.9"};
    const QStringList lightweight = {"tag", "v7.8.9"};
    QTest::newRow("on the tag") << annotated << 0;
    QTest::newRow("after the tag") << annotated << 3;
    QTest::newRow("tag without a message") << lightweight << 1;
}

void test_build_versions::tag_is_followed_by_the_commits_since()
{
    QFETCH(QStringList, tag_command);
    QFETCH(int, commits_since);
    tree->make_repository();
    QString last_commit = tree->commit(tree_files);
    tree->git.run(tag_command);
    for (int i = 0; i < commits_since; ++i)
        last_commit = tree->commit({"src/a.cpp"});
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written()["application"],
             QString("v7.8.9-%1-g%2").arg(commits_since).arg(last_commit));
}

void test_build_versions::nearest_tag_counts()
{
    tree->make_repository();
    tree->commit(tree_files);
    tree->git.run({"tag", "v9.0.0"});
    tree->commit({"src/a.cpp"});
    tree->git.run({"tag", "v1.0.0"});
    const QString last_commit = tree->commit({"src/a.cpp"});
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written()["application"], "v1.0.0-1-g" + last_commit);
}

void test_build_versions::tag_of_another_form_doesnt_count_data()
{
    QTest::addColumn<QString>("tag");
    QTest::newRow("another word") << "release-1.0.0";
    QTest::newRow("no number") << "version-1.0.0";
    QTest::newRow("no letter") << "1.0.0";
}

void test_build_versions::tag_of_another_form_doesnt_count()
{
    QFETCH(QString, tag);
    tree->make_repository();
    const QString only_commit = tree->commit(tree_files);
    tree->git.run({"tag", tag});
    QCOMPARE(tree->git.run({"tag", "--list"}), tag);
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written()["application"], "v4.5.6-1-g" + only_commit);
}

void test_build_versions::without_a_tag_all_commits_count()
{
    tree->make_repository();
    tree->commit(tree_files);
    tree->commit({"src/a.cpp"});
    const QString last_commit = tree->commit({"src/a.cpp"});
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written()["application"], "v4.5.6-3-g" + last_commit);
}

void test_build_versions::commit_counts_only_for_its_tree_data()
{
    QTest::addColumn<QString>("component");
    QTest::newRow("orv_toolkit/orv/panel.cpp") << "orv_toolkit";
    QTest::newRow("orv_toolkit/CMakeLists.txt") << "orv_toolkit";
    QTest::newRow("qor/string.h") << "qor";
    QTest::newRow("qor/qt/layout.cpp") << "qor";
    QTest::newRow("cmake/build_versions.cmake") << "orv_infrastructure";
    QTest::newRow("packaging/build_package.sh") << "orv_infrastructure";
    QTest::newRow("tools/install_packages.sh") << "orv_infrastructure";
    QTest::newRow("resources/images/logo.png") << "orv_infrastructure";
    QTest::newRow("CMakeLists.txt") << "orv_infrastructure";
    QTest::newRow("CMakePresets.json") << "orv_infrastructure";
    QTest::newRow("run.sh") << "orv_infrastructure";
    for (const char *name : {"src/main.cpp", "src/CMakeLists.txt", "tests/run.sh", "README.md",
                             "orv_toolkit.txt", "qor2/a.cpp"})
        QTest::newRow(name) << QString();
}

void test_build_versions::commit_counts_only_for_its_tree()
{
    QFETCH(QString, component);
    tree->make_repository();
    const QString first_commit = tree->commit(tree_files);
    const QString last_commit = tree->commit({QTest::currentDataTag()});
    QVERIFY(first_commit != last_commit);
    versions expected = {{"application", "v4.5.6-2-g" + last_commit},
                         {"orv_infrastructure", first_commit},
                         {"orv_toolkit", first_commit},
                         {"qor", first_commit}};
    if (!component.isEmpty())
        expected[component] = last_commit;
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), expected);
}

void test_build_versions::uncommitted_changes_dont_matter_data()
{
    QTest::addColumn<bool>("tagged");
    QTest::newRow("after a tag") << true;
    QTest::newRow("without a tag") << false;
}

void test_build_versions::uncommitted_changes_dont_matter()
{
    QFETCH(bool, tagged);
    tree->make_repository();
    tree->commit(tree_files);
    if (tagged)
        tree->git.run({"tag", "v7.8.9"});
    QVERIFY(tree->write_header());
    const versions before = tree->written();
    append_to_file(tree->path_of("qor/a.cpp"));
    append_to_file(tree->path_of("orv_toolkit/untracked.cpp"));
    append_to_file(tree->path_of("CMakeLists.txt"));
    tree->git.run({"add", "CMakeLists.txt"});
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), before);
}

void test_build_versions::tree_that_was_never_committed_has_zeros()
{
    tree->make_repository();
    const QString only_commit = tree->commit({"orv_toolkit/a.cpp"});
    append_to_file(tree->path_of("qor/untracked.cpp"));
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), versions({{"application", "v4.5.6-1-g" + only_commit},
                                        {"orv_infrastructure", "0000000"},
                                        {"orv_toolkit", only_commit},
                                        {"qor", "0000000"}}));
}

void test_build_versions::hash_always_has_seven_digits()
{
    tree->make_repository();
    tree->git.run({"config", "core.abbrev", "20"});
    const QString only_commit = tree->commit(tree_files);
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), versions({{"application", "v4.5.6-1-g" + only_commit},
                                        {"orv_infrastructure", only_commit},
                                        {"orv_toolkit", only_commit},
                                        {"qor", only_commit}}));
    tree->git.run({"tag", "v1"});
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written()["application"], "v1-0-g" + only_commit);
}

void test_build_versions::source_archive_has_zeros()
{
    for (const QString &name : tree_files)
        append_to_file(tree->path_of(name));
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), versions_without_git);
}

void test_build_versions::missing_git_gives_zeros()
{
    tree->make_repository();
    tree->commit(tree_files);
    const QTemporaryDir empty_folder;
    QVERIFY(tree->write_header({{"PATH", empty_folder.path()}}));
    QCOMPARE(tree->written(), versions_without_git);
}

void test_build_versions::repository_without_a_commit_gives_zeros()
{
    tree->make_repository();
    QVERIFY(tree->write_header());
    QCOMPARE(tree->written(), versions_without_git);
}

/// For example an archive that somebody unpacked inside a repository.
void test_build_versions::folder_inside_a_repository_isnt_one()
{
    tree->make_repository();
    for (const QString &name : tree_files)
        tree->commit({"inner/" + name});
    QVERIFY(tree->write_header_for(tree->path_of("inner")));
    QCOMPARE(tree->written(), versions_without_git);
}

/// A git hook passes its own repository to everything that it starts, including a build.
void test_build_versions::repository_of_a_hook_isnt_used()
{
    const source_tree other;
    other.make_repository();
    other.commit(tree_files);
    const QMap<QString, QString> hook = {{"GIT_DIR", other.path_of(".git")}};
    QVERIFY(tree->write_header(hook));
    QCOMPARE(tree->written(), versions_without_git);
}

void test_build_versions::folder_of_a_hook_isnt_used()
{
    const source_tree other;
    other.make_repository();
    other.commit({"src/a.cpp"});
    tree->make_repository();
    const QString only_commit = tree->commit(tree_files);
    const QMap<QString, QString> hook = {{"GIT_DIR", other.path_of(".git")},
                                         {"GIT_WORK_TREE", other.git.path}};
    QVERIFY(tree->write_header(hook));
    QCOMPARE(tree->written()["application"], "v4.5.6-1-g" + only_commit);
}

void test_build_versions::linked_folder_is_a_repository()
{
    tree->make_repository();
    const QString only_commit = tree->commit(tree_files);
    const QTemporaryDir links;
    QVERIFY(QFile::link(tree->git.path, links.filePath("source")));
    QVERIFY(tree->write_header_for(links.filePath("source")));
    QCOMPARE(tree->written()["application"], "v4.5.6-1-g" + only_commit);
}

void test_build_versions::folder_of_another_user_is_a_repository()
{
    tree->make_repository();
    const QString only_commit = tree->commit(tree_files);
    QVERIFY(tree->write_header({{"GIT_TEST_ASSUME_DIFFERENT_OWNER", "1"}}));
    QCOMPARE(tree->written()["application"], "v4.5.6-1-g" + only_commit);
}

/// Otherwise every build would compile sources that haven't changed.
void test_build_versions::header_is_written_only_when_it_changes()
{
    tree->make_repository();
    tree->commit(tree_files);
    QVERIFY(tree->write_header());
    const QDateTime long_ago({2001, 2, 3}, {4, 5, 6});
    QFile header(tree->header_path());
    QVERIFY(header.open(QIODevice::ReadWrite));
    QVERIFY(header.setFileTime(long_ago, QFileDevice::FileModificationTime));
    header.close();
    append_to_file(tree->path_of("qor/a.cpp"));
    QVERIFY(tree->write_header());
    QCOMPARE(QFileInfo(tree->header_path()).lastModified(), long_ago);

    const QString last_commit = tree->commit({"qor/a.cpp"});
    QVERIFY(tree->write_header());
    QVERIFY(QFileInfo(tree->header_path()).lastModified() > long_ago);
    QCOMPARE(tree->written()["qor"], last_commit);
}

KELVRA_CORE_TEST_MAIN(test_build_versions)
#include "test_build_versions.moc"
