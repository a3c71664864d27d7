% Plots the depth of a dive, coloured by the temperature of the water, into a picture; for Matlab and Octave.
% The .mat comes from: unserialize -m dive
%
%   octave-cli plot_dive.m dive.mat dive.png          in Matlab: source = 'dive.mat'; picture = 'dive.png'; plot_dive
if exist('OCTAVE_VERSION', 'builtin')
  [source, picture] = argv(){:};
  graphics_toolkit('gnuplot');  % draws without a screen
  device = '-dpngcairo';
else
  device = '-dpng';
end
dive = load(source, 'depth', 'sea_water_temperature');

days = dive.depth.time(:);
[temperatureDays, first] = unique(dive.sea_water_temperature.time(:));
temperatures = dive.sea_water_temperature.value(:);
temperature = interp1(temperatureDays, temperatures(first), days);

figure('visible', 'off');
scatter(days, dive.depth.value(:), 8, temperature, 'filled');
set(gca, 'ydir', 'reverse');
datetick('x', 'HH:MM');
ylabel(['depth (' char(dive.depth.units) ')']);
title(['sea water temperature (' char(dive.sea_water_temperature.units) ') on ' datestr(days(1), 'yyyy-mm-dd')]);
caxis([min(temperature) max(temperature)]);
colorbar;
print(picture, device);
