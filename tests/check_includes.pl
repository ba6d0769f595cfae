#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks that includes go one way: qor knows nobody, qor/qt adds Qt, the toolkit uses both, src uses
# all, tests and benchmarks stand at the end. Names what goes against it, as FILE:LINE: WHAT.
#
# usage: tests/check_includes.pl
#
#   Our own headers   are included in quotes, and stand in a folder that the source may use.
#   Headers of Qt     in angle brackets, are for all but qor.
#   A header's source includes it as the first, which shows that the header compiles alone.
use strict;
use warnings;
use File::Basename;
use FindBin;

chdir "$FindBin::Bin/.." or die "$!\n";

my @program = ('src', 'orv_toolkit/orv', 'qor/qt', 'qor');

# The folders whose headers a folder's sources may include.
my %allowed = (
    'qor' => ['qor'],
    'qor/qt' => ['qor/qt', 'qor'],
    'orv_toolkit/orv' => ['orv_toolkit/orv', 'qor/qt', 'qor'],
    'src' => \@program,
    'bench' => ['bench', @program],
    'tests' => ['tests', 'tests/support', @program],
    'tests/support' => ['tests/support', @program],
    'tests/demo' => ['tests/demo', 'tests/support', @program],
);

# Where the compiler looks for what stands in quotes; the build generates the others.
my @search_path = ('', 'orv_toolkit/', 'src/', 'bench/', 'tests/support/');
my $generated = qr{^(orv/build_versions\.h|\w+\.moc)$};

my $failures = 0;

sub fail {
    my ($what) = @_;
    print "$ARGV:$.: $what\n";
    ++$failures;
}

# The folder of the header that `name` stands for, or nothing.
sub folder_of {
    my ($name) = @_;
    for my $path (dirname($ARGV) . '/', @search_path) {
        return dirname("$path$name") if -f "$path$name";
    }
    return;
}

sub check_own {
    my ($name) = @_;
    return if $name =~ $generated;
    my $folder = folder_of($name);
    if (!defined $folder) {
        fail("\"$name\" is none of our headers");
    } elsif (!grep { $_ eq $folder } @{ $allowed{ dirname($ARGV) } }) {
        fail(dirname($ARGV) . " mustn't use \"$name\" of $folder");
    }
}

sub check_foreign {
    my ($name) = @_;
    if (defined folder_of($name)) {
        fail("<$name> is a header of ours, which stands in quotes");
    } elsif (dirname($ARGV) eq 'qor' && $name =~ m{^(Q[A-Z]|Qt|q\w+\.h)}) {
        fail("qor mustn't use <$name> of Qt");
    }
}

# A source without a header of its name may begin with any.
sub check_first {
    my ($name) = @_;
    (my $header = $ARGV) =~ s/\.cpp$/.h/;
    return if $ARGV !~ /\.cpp$/ || !-f $header || basename($header) eq basename($name);
    fail("includes \"$name\" before its own header");
}

@ARGV = split /\n/, `git ls-files --cached --others --exclude-standard '*.cpp' '*.h' '*.inc'`;
my $sources = @ARGV;
my $is_first = 1;
while (<>) {
    if ($. == 1 && !$allowed{ dirname($ARGV) }) {
        fail('stands in a folder without a rule');
    } elsif (/^\s*#\s*include\s*(["<])([^">]+)/) {
        my ($mark, $name) = ($1, $2);
        $mark eq '"' ? check_own($name) : check_foreign($name);
        check_first($name) if $is_first;
        $is_first = 0;
    }
    if (eof) {
        close ARGV;
        $is_first = 1;
    }
}
die "no sources\n" if !$sources;
exit($failures ? 1 : 0);
