# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of velkor-plot for bash.
complete -f -o plusdirs -X '!*.tdr' velkor-plot
