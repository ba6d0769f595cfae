#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Makes the table of medians from the samples of bench.sh. The status is 1 if a target is missed, 2
# if a figure is missing.
#
# usage: table.pl PHOTOS RUNS FEW_ROWS MANY_ROWS SAMPLES PIECES
# SAMPLES has a line "NAME VALUE" for each figure of each run, PIECES the report of small_pieces.
use strict;
use warnings;

sub give_up {
    print STDERR "@_\n";
    exit 2;
}

my ($photos, $runs, $few, $many, $samples_file, $pieces_file) = @ARGV;
give_up('usage: table.pl PHOTOS RUNS FEW_ROWS MANY_ROWS SAMPLES PIECES')
    unless defined $pieces_file;

my %samples;
open my $samples_in, '<', $samples_file or give_up("$samples_file: $!");
while (<$samples_in>) {
    my ($name, $value) = split;
    push @{$samples{$name}}, $value;
}

sub median {
    my @sorted = sort { $a <=> $b } @_;
    my $middle = int(@sorted / 2);
    return @sorted % 2 ? $sorted[$middle] : ($sorted[$middle - 1] + $sorted[$middle]) / 2;
}

sub values_of {
    my ($name) = @_;
    my $count = @{$samples{$name} || []};
    give_up("$count figures called $name instead of $runs") if $count != $runs;
    return @{$samples{$name}};
}

# The ratios, run by run, so that drift from run to run cancels out.
sub ratios {
    my ($above, $below) = @_;
    my @above = values_of($above);
    my @below = values_of($below);
    return map { $above[$_] / $below[$_] } 0 .. $#above;
}

my $missed = 0;

sub row {
    my ($what, $unit, $target, @values) = @_;
    my @sorted = sort { $a <=> $b } @values;
    my $median = median(@values);
    my $verdict = !defined $target ? '' : $median <= $target ? 'met' : 'MISSED';
    $missed = 1 if $verdict eq 'MISSED';
    printf "| %s | %.3f%s | %.3f to %.3f | %s | %s |\n", $what, $median, $unit, $sorted[0],
        $sorted[-1], defined $target ? "at most $target" : '', $verdict;
}

sub batch_rows {
    my ($size, $title) = @_;
    row("$title: bare read", ' ms', undef, values_of("${size}_raw_load_ms"));
    row("$title: load", ' ms', undef, values_of("${size}_load_ms"));
    row("$title: load / bare reads", '', 1.10, ratios("${size}_load_ms", "${size}_raw_load_ms"));
    row("$title: load, own processor time", ' ms', 0.5, values_of("${size}_load_cpu_ms"));
    row("$title: bare write", ' ms', undef, values_of("${size}_raw_fix_ms"));
    row("$title: fix", ' ms', undef, values_of("${size}_fix_ms"));
    row("$title: fix / bare writes", '', 1.05, ratios("${size}_fix_ms", "${size}_raw_fix_ms"));
    row("$title: fix, own processor time", ' ms', 0.5, values_of("${size}_fix_cpu_ms"));
    row("$title: a tool process per file, 9 files, read", ' ms', undef,
        values_of("${size}_one_by_one_read_ms"));
    row("$title: a tool process per file, 9 files, write", ' ms', undef,
        values_of("${size}_one_by_one_write_ms"));
    row("$title: -AllDates+= over the folder, one process", ' ms', undef,
        values_of("${size}_folder_ms"));
}

print <<"END";
# Speed and memory

$photos photos of each size, $runs runs. Times of batches are for each photo. A ratio is taken run
by run.

| What | Median | Range | Target | |
| --- | --- | --- | --- | --- |
END
batch_rows('small', '100 kB');
batch_rows('large', '4 MB');
row("$few photos, instant replies from the tool: load", ' ms', undef, values_of('few_load_ms'));
row("$many photos, instant replies from the tool: load", ' ms', undef, values_of('many_load_ms'));
row("load, $many photos / $few", '', 1.1, ratios('many_load_ms', 'few_load_ms'));
row("$many rows: slowest of 20 keys until painted", ' ms', 8, values_of('many_key_ms'));
row("$many rows: sort by name", ' ms', 250, values_of('many_sort_by_name_ms'));
row("$many rows: sort by time", ' ms', 250, values_of('many_sort_by_time_ms'));
row('start until painted', ' ms', undef, values_of('kelvra_start_ms'));
row('start / start of an empty window', '', 2.0, ratios('kelvra_start_ms', 'empty_start_ms'));
row('start / start of an empty window without OpenGL', '', undef,
    ratios('kelvra_start_ms', 'plain_start_ms'));
row('tool processes before the first photo', '', 0, values_of('kelvra_children'));
row('memory of an empty window', ' MB', undef, values_of('empty_mb'));
row('memory with an empty list', ' MB', 80, values_of('kelvra_mb'));
row('memory of a photo / its tags as nodes', '', 1.5,
    ratios('many_photo_kb', 'many_photo_nodes_kb'));
row('memory after a reset / before the load', '', 1.10,
    ratios('many_reset_mb', 'many_empty_mb'));
row('idle without the focus, processor time in a second', ' ms', 0,
    values_of('kelvra_idle_ms_per_s'));
row("idle with $many rows and a blinking caret, the same", ' ms', undef,
    values_of('many_caret_idle_ms_per_s'));

print "\n```\n";
open my $pieces_in, '<', $pieces_file or give_up("$pieces_file: $!");
print grep { /^-|^Benchmark|_median/ } <$pieces_in>;
print "```\n";
exit $missed;
