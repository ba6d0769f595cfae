#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks that the documents agree with the tree. Prints each mistake as FILE:LINE: WHAT.
#
# usage: tools/check_documents.pl
#
#   Links     lead to a file, a picture or a heading that exists.
#   Names     between backticks exist. A path below a folder of the tree is a file or folder there;
#             NAME and other placeholders match anything. All parts of a::b are in one source. A
#             name after "Test:" or in a column "Tests" or "Shown by" is a test. Anything else is
#             in the sources exactly as written, or in the list below.
#   Commands  are lines of a block marked "sh", and text between backticks that begins with "./" or
#             names a script with arguments. Each is run by .ci/run or .ci/long, or by a script that
#             these run. Words in capitals match anything, and so do variables in a script.
#   Versions  are the project's version.
#
# In the manuals, text between backticks is what the program shows or prints in the manual's
# language, with "…" for each part that differs, and each line that the program prints is there.
# Their commands are run by the test "manual".
#
# Exits with 1 if anything is wrong.
use strict;
use warnings;
use File::Basename;
use File::Find;
use FindBin;

chdir "$FindBin::Bin/.." or die "$!\n";

my @documents = ('README.md', 'CONTRIBUTING.md', 'CHANGELOG.md', sort glob 'docs/*.md');
my @manuals = map { "docs/manual/manual_$_.md" } qw(en de);
my @entries = ('.ci/run', '.ci/long');
my $source =
    qr/\.(cpp|h|inc|in|txt|cmake|json|args|supp|sh|pl|ts|html|theme|1|xml|desktop)$|^[^.]+$/;
my $file_name = qr{^[^/\s]*[\w*]\.(cpp|h|sh|pl|md|ts|svg|png|html|cmake|supp|json)$};
my $placeholder = qr/\b(?:PREFIX|PHOTO)\b|(?<![A-Z])NAME(?![A-Z])|\*/;
my $variable = qr/\$\(.*?\)|\$\{.*?\}|\$[\w@#]+/;

# Names that are in no source, and why a document may use them.
my %foreign = (
    'kelvra_help_en.html' => 'what the program writes, from kelvra_help_%1.html',
    'HKEY_CURRENT_USER\Software\Vorrin\Kelvra' => 'where Qt keeps settings on Windows',
    '~/.cache/kelvra' => 'the default of "cache" in packaging/windows/sources.sh',
    'man kelvra' => 'shows packaging/man/kelvra.1 once it is installed',
);

# Commands that run in another form: a test runs them on copies, a script into a separate folder.
my %run_otherwise = (
    'cmake --install build/release --prefix PREFIX' => 'tests/program/test_installation.cpp',
    'lupdate src -ts resources/translations/de.ts' => 'tests/program/test_catalogues.cpp',
    'lupdate orv_toolkit qor -ts resources/translations/toolkit_de.ts' =>
        'tests/program/test_catalogues.cpp',
    'resources/artwork/render.sh' => 'lint.sh',
);

my $failures = 0;

sub fail {
    my ($place, $what) = @_;
    print "$place: $what\n";
    ++$failures;
}

sub text_of {
    my ($path) = @_;
    open my $file, '<', $path or die "$path: $!\n";
    local $/;
    return scalar <$file>;
}

# --- The tree ---------------------------------------------------------------------------------

my (%text_of_source, %is_path, %is_base_name);

sub take_file {
    my $path = $File::Find::name =~ s{^\./}{}r;
    if ($path eq '.git' || $path eq 'build') {
        $File::Find::prune = 1;
        return;
    }
    $is_path{$path} = 1;
    $is_base_name{basename($path)} = 1;
    return if $path =~ m{^(tools/check_documents.pl|LICENSE|packaging/licenses/.*)$};
    return unless -f $path && basename($path) =~ $source;
    $text_of_source{$path} = text_of($path);
}

find({wanted => \&take_file, no_chdir => 1}, '.');
my $all_sources = join "\n", values %text_of_source;
my %is_test =
    map { $_ => 1 } map { text_of($_) =~ /^\s*add_qt_test\((\w+)/mg } glob 'tests/*/CMakeLists.txt';
my %is_preset = map { $_ => 1 } text_of('CMakePresets.json') =~ /"name": "(\w+)"/g;
my ($version) = text_of('CMakeLists.txt') =~ /project\(\w+ VERSION ([\d.]+)/;

# --- Documents --------------------------------------------------------------------------------

# The lines of a document: [place, kind, text], the kind being "prose", "sh" or "text".
sub lines_of_document {
    my ($document) = @_;
    my (@lines, $block);
    my $number = 0;
    for my $text (split /\n/, text_of($document)) {
        my $place = "$document:" . ++$number;
        if ($text =~ /^\s*```(\w*)$/) {
            fail($place, "mark the block with \"sh\" or \"text\"")
                if !$block && $1 !~ /^(sh|text)$/;
            $block = $block ? undef : $1 || 'text';
        } else {
            push @lines, [$place, $block || 'prose', $text];
        }
    }
    return @lines;
}

sub without_blocks {
    return $_[0] =~ s/^\s*```.*?^\s*```$//gmsr;
}

# The anchors of a document's headings, as links use them.
sub anchors_of {
    my ($document) = @_;
    my $prose = without_blocks(text_of($document));
    utf8::decode($prose);
    my @anchors = map { lc($_) =~ s/[^\w -]//gr =~ tr/ /-/r } $prose =~ /^#+ (.*)/mg;
    utf8::encode($_) for @anchors;
    return map { $_ => 1 } @anchors;
}

sub check_link {
    my ($place, $document, $target) = @_;
    return if $target =~ m{^https?://};
    my ($path, $anchor) = split /#/, $target, 2;
    $path = length $path ? dirname($document) . "/$path" : $document;
    if (!-e $path) {
        fail($place, "link to $target, which doesn't exist");
    } elsif (defined $anchor && !{anchors_of($path)}->{$anchor}) {
        fail($place, "link to $target: no such heading");
    }
}

# --- Names ------------------------------------------------------------------------------------

sub is_in_sources {
    my ($text) = @_;
    my $begin = $text =~ /^\w/ ? '(?<!\w)' : '';
    return $all_sources =~ /$begin\Q$text\E(?!\w)/;
}

sub has_all_parts {
    my @parts = split /::/, $_[0];
    for my $text (values %text_of_source) {
        return 1 if @parts == grep { $text =~ /\b\Q$_\E\b/ } @parts;
    }
    return 0;
}

sub is_path_of_tree {
    my ($path) = @_;
    return $path =~ m{^([^/]+)/} && -d $1 && $1 ne 'build';
}

# Whether the path is in the tree. A file name without a folder may be anywhere in it.
sub exists_in_tree {
    my ($path) = @_;
    my $pattern = join '[^/]*', map { quotemeta } split $placeholder, $path =~ s{/$}{}r, -1;
    return grep { m{^$pattern$} } $path =~ m{/} ? keys %is_path : keys %is_base_name;
}

sub is_known {
    my $name = $_[0] =~ s/\(\)$//r;
    return 1 if exists_in_tree($name);
    return 0 if is_path_of_tree($name) || $name =~ $file_name;
    return has_all_parts($name) if $name =~ /^\w+(::\w+)+$/;
    return is_in_sources($name =~ s{$placeholder/?}{}gr =~ s{/$}{}r);
}

my %used;

sub check_name {
    my ($place, $name) = @_;
    if (exists $foreign{$name}) {
        $used{$name} = 1;
    } elsif (!is_known($name)) {
        fail($place, "`$name` isn't in the tree");
    }
}

sub check_test {
    my ($place, $name) = @_;
    fail($place, "`$name` isn't a test") unless $is_test{$name};
}

# --- Commands ---------------------------------------------------------------------------------

# The words of each command line that runs, script by script.
my @run_lines;

sub words_of {
    my ($line) = @_;
    $line =~ s/(\|\||&&|[;|()])/ $1 /g unless $line =~ /\$\(/;
    return map { s/^\w+="//r =~ s/["']//gr } split ' ', $line;
}

# The script of the tree that a word names, if any.
sub script_named {
    my $path = $_[0] =~ s{^(?:$variable/|\.\./|\./)+}{}r;
    return -f $path && text_of($path) =~ /^#!|\A# SPDX.*\n# shellcheck/ ? $path : undef;
}

sub follow_script {
    my ($script, $seen) = @_;
    return if $seen->{$script}++;
    for my $line (grep { !/^\s*#/ } split /\n/, text_of($script)) {
        my @words = words_of($line);
        push @run_lines, \@words if @words;
        follow_script($_, $seen) for grep { defined } map { script_named($_) } @words;
    }
}

# Whether the word of a document matches the word of a script. If that is a path with a variable,
# only the last parts are compared.
sub is_same_word {
    my ($wanted, $found) = @_;
    return 1 if $wanted =~ /^[A-Z]{3,}$/ && $found !~ /^-/;
    if ($found =~ $variable && $found =~ m{/}) {
        s{^.*/}{} for $wanted, $found;
    }
    my @fixed = split $variable, $found, -1;
    my $pattern = join '.+', map { quotemeta s/\\\$/\$/gr } @fixed;
    return $wanted =~ /^$pattern$/;
}

# Whether these words of a script run the command. Further options don't matter.
sub runs {
    my ($command, @words) = @_;
    my @wanted = @$command;
    for my $word (@words) {
        return !@wanted if $word =~ /^(\|\|?|&&?|;|\)|\d?[<>].*)$/;
        if (@wanted && is_same_word($wanted[0], $word)) {
            shift @wanted;
        } elsif ($word !~ /^-/) {
            return 0;
        }
    }
    return !@wanted;
}

sub is_run {
    my @command = words_of($_[0]);
    for my $words (@run_lines) {
        for my $start (grep { $words->[$_] =~ s{^$variable/}{}r eq $command[0] } 0 .. $#$words) {
            return 1 if runs(\@command, @$words[$start .. $#$words]);
        }
    }
    return 0;
}

sub check_command {
    my ($place, $line) = @_;
    my $command = $line =~ s/(^|\s+)#.*//r =~ s/^\s*(sudo )?//r;
    return if $command eq '' || grep { $_ eq $command } @entries;
    my ($first) = split ' ', $command;
    if ($first =~ m{/} && !-x $first) {
        fail($place, "`$first` can't be run");
    } elsif ($command =~ /--preset (\S+)/ && !$is_preset{$1}) {
        fail($place, "there is no preset $1");
    } elsif (-f ($run_otherwise{$command} || '')) {
        $used{$command} = 1;
    } elsif (!is_run($command)) {
        fail($place, "`$command` isn't run by @entries, or by a script that they run");
    }
}

sub is_command {
    my ($name) = @_;
    return $name =~ m{^\./\S} || $name =~ m{^(\S+/\S+) } && -x $1;
}

# --- All together -----------------------------------------------------------------------------

sub check_words_in_backticks {
    my ($place, $text, $are_tests) = @_;
    while ($text =~ /`([^`]+)`/g) {
        my $name = $1;
        $are_tests ||= substr($text, 0, $-[0]) =~ /\bTests?: /;
        if (is_command($name)) {
            check_command($place, $name);
        } elsif ($are_tests && $name !~ m{/}) {
            check_test($place, $name);
        } else {
            check_name($place, $name);
        }
    }
    fail($place, 'a name in backticks is broken over two lines') if ($text =~ tr/`//) % 2;
}

sub check_table_row {
    my ($place, $text, $headings) = @_;
    my @cells = split /\s*\|\s*/, $text;
    for my $column (0 .. $#cells) {
        my $are_tests = ($headings->[$column] || '') =~ /^(Tests|Shown by)$/;
        check_words_in_backticks($place, $cells[$column], $are_tests);
    }
}

sub check_versions {
    my ($place, $text) = @_;
    while ($text =~ /kelvra[_-](\d+\.\d+\.\d+)/g) {
        fail($place, "version $1 instead of $version") if $1 ne $version;
    }
}

sub check_document {
    my ($document) = @_;
    my $headings;
    for (lines_of_document($document)) {
        my ($place, $kind, $text) = @$_;
        check_versions($place, $text);
        check_command($place, $text) if $kind eq 'sh';
        next if $kind ne 'prose';
        fail($place, 'put the indented text into a block') if $text =~ /^(\t| {4,})\S/;
        my $plain = $text =~ s/`[^`]*`//gr;
        check_link($place, $document, $1) while $plain =~ /\]\(([^)\s]+)\)/g;
        if ($text =~ /^\|/) {
            $headings ||= [split /\s*\|\s*/, $text];
            check_table_row($place, $text, $headings);
        } else {
            undef $headings;
            check_words_in_backticks($place, $text, 0);
        }
    }
}

# --- Manuals ----------------------------------------------------------------------------------

sub unescaped {
    my %characters = (n => "\n", t => "\t");
    return $_[0] =~ s/\\(.)/$characters{$1} || $1/ger;
}

my $literal = qr/"((?:[^"\\\n]|\\.)*)"/;

# The program's sources, with literals in one piece.
sub code_of_program {
    my $code = join "\n", map { $text_of_source{$_} }
        grep { m{^(src|orv_toolkit|qor)/.*\.(cpp|h)$} } keys %text_of_source;
    return $code =~ s/"\s*\n\s*"//gr;
}

sub literals_of_program {
    return map { unescaped($_) } code_of_program() =~ /$literal/g;
}

# Pairs of an English text and its translation.
sub translations {
    my %entities = (quot => '"', apos => "'", amp => '&', lt => '<', gt => '>');
    return map { s/&(\w+);/$entities{$1}/gr }
        map { text_of($_) =~ m{<source>(.*?)</source>\s*<translation>(.*?)</translation>}gs }
        glob 'resources/translations/*.ts';
}

# What the program shows or prints in the language.
sub texts_of_program {
    my ($language) = @_;
    my @texts = literals_of_program();
    return @texts if $language eq 'en';
    my %translated = translations();
    return ((grep { !exists $translated{$_} } @texts), values %translated);
}

# Texts that look like the program's in a manual but don't come from its sources: the examples of
# what they look like, and the button of Qt's boxes.
my @foreign_texts = ('like this', 'so', 'OK');

sub check_messages {
    my ($manual, $prose, @texts) = @_;
    my $pool = join "\0", map { tr/\n/ /r } @texts, @foreign_texts;
    my @spans = $prose =~ tr/\n/ /r =~ /(``.*?``|`[^`]+`)/g;
    for my $span (@spans) {
        my $message = $span =~ s/^``? ?| ?``?$//gr;
        for my $part (grep { /\w/ } split /\s*…\s*/, $message) {
            fail($manual, "the program has no text \"$part\"") if index($pool, $part) < 0;
        }
    }
}

# Each line that the program prints has to be in the manual, up to its first variable part.
sub check_printed_lines {
    my ($manual, $text) = @_;
    my @printed = code_of_program() =~ /(?:print_line\(|std::c(?:out|err)\s*<< )$literal/g;
    for my $line (grep { /\w/ } map { unescaped($_) } @printed) {
        fail($manual, "the line \"$line\" is missing") if index($text, $line) < 0;
    }
}

sub check_manual {
    my ($manual) = @_;
    my ($language) = $manual =~ /_(\w+)\.md$/;
    my $text = text_of($manual);
    my $prose = without_blocks($text);
    check_link($manual, $manual, $1) while $prose =~ /\]\(([^)\s]+)\)/g;
    check_messages($manual, $prose, texts_of_program($language));
    check_printed_lines($manual, $text);
}

sub check_newest_change {
    my ($newest) = text_of('CHANGELOG.md') =~ /^## \[([\d.]+)\]/m;
    fail('CHANGELOG.md:1', "the newest version isn't $version") if ($newest || '') ne $version;
}

my %seen;
for my $entry (@entries) {
    if (-f $entry) {
        follow_script($entry, \%seen);
    } else {
        fail($entry, "doesn't exist");
    }
}
check_document($_) for @documents;
check_manual($_) for @manuals;
check_newest_change();
fail('tools/check_documents.pl', "`$_` is in a list here but in no document")
    for grep { !$used{$_} } sort keys %foreign, keys %run_otherwise;
print @documents + @manuals, " documents agree with the tree\n" unless $failures;
exit($failures ? 1 : 0);
