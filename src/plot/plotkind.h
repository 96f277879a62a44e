#pragma once

/// What takes the place of the X-Y plot, by session.plotKind. None of them on the life side. All of them have
/// plain axes, whatever the axis pair of the X-Y plot: a bar grows from zero, and a share is no logarithm.

bool barsplotted();
bool pieplotted();
bool spaceplotted();

/// True where X and Y of the sets stand on two axes, as points and lines.
bool xyplotted();
