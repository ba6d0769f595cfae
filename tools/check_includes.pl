#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks that includes follow the order of the modules. Prints each that doesn't, as
# FILE:LINE: WHAT.
#
# usage: tools/check_includes.pl
#
#   Our headers   are included in quotes, from the modules that a source may use (see below).
#   Qt's headers  are included in angle brackets, by every module except qor.
#   A source      includes its own header first, which shows that the header compiles on its own.
use strict;
use warnings;
use File::Basename;
use FindBin;

chdir "$FindBin::Bin/.." or die "$!\n";

# A module is a folder, with two exceptions: the metadata tool's sources are in the toolkit's
# folder, and the cache of its answers is in src.
my $metadata = qr{^orv_toolkit/orv/(exiftool|tag_catalogue|tag_catalogue_names|tag_map|tag_reply)\.};
my $cache = qr{^src/exif_cache\.};

my @core = ('src/core', 'metadata', 'qor');
my @toolkit = ('orv_toolkit/orv', 'qor/qt', 'qor');
my @program = ('src', 'src/startup', 'cache', 'metadata', @core, @toolkit);
my @support = ('tests/support', @program);

# The modules whose headers a module's sources may include.
my %allowed = (
    'qor' => ['qor'],
    'qor/qt' => ['qor/qt', 'qor'],
    'metadata' => ['metadata', 'qor'],
    'orv_toolkit/orv' => \@toolkit,
    'src/core' => \@core,
    'cache' => ['cache', @core],
    'src/startup' => ['src/startup', @toolkit],
    'src' => \@program,
    'bench' => ['bench', @program],
    'tests/qor' => ['tests/support', 'qor'],
    'tests/metadata' => ['tests/support', 'metadata', 'qor'],
    'tests/core' => ['tests/support', 'cache', @core],
    'tests/layout' => ['tests/support', @toolkit],
    'tests/widgets' => \@support,
    'tests/window' => \@support,
    'tests/workflow' => \@support,
    'tests/program' => \@support,
    'tests/random' => \@support,
    'tests/support' => \@support,
    'tests/support/programs' => \@support,
    'tests/demo' => \@support,
);

# Where the compiler looks for headers in quotes; the build generates the others.
my @search_path = ('', 'orv_toolkit/', 'src/', 'bench/', 'tests/support/');
my $generated = qr{^(orv/build_versions\.h|\w+\.moc)$};

my $failures = 0;

sub fail {
    my ($what) = @_;
    print "$ARGV:$.: $what\n";
    ++$failures;
}

sub module_of {
    my ($file) = @_;
    return $file =~ $metadata ? 'metadata' : $file =~ $cache ? 'cache' : dirname($file);
}

# The path of the header with this name, or nothing.
sub path_of {
    my ($name) = @_;
    for my $path (dirname($ARGV) . '/', @search_path) {
        return "$path$name" if -f "$path$name";
    }
    return;
}

sub check_own {
    my ($name) = @_;
    return if $name =~ $generated;
    my $path = path_of($name);
    if (!defined $path) {
        fail("\"$name\" isn't a header of this project");
        return;
    }
    my ($user, $used) = (module_of($ARGV), module_of($path));
    fail("$user mustn't use \"$name\" of $used") unless grep { $_ eq $used } @{ $allowed{$user} };
}

sub check_foreign {
    my ($name) = @_;
    if (defined path_of($name)) {
        fail("<$name> is a header of this project, which belongs in quotes");
    } elsif (dirname($ARGV) eq 'qor' && $name =~ m{^(Q[A-Z]|Qt|q\w+\.h)}) {
        fail("qor mustn't use <$name> of Qt");
    }
}

# A source that has no header of its own may include any header first.
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
    if ($. == 1 && !$allowed{ module_of($ARGV) }) {
        fail('is in a folder without a rule');
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
