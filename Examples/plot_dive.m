% Plots the depth of a dive and the temperature of the water over time into a picture; for Matlab and Octave.
% The .mat comes from: unserialize -m -O dive
%
%   octave-cli plot_dive.m dive.mat dive.png          in Matlab: source = 'dive.mat'; picture = 'dive.png'; plot_dive
if exist('OCTAVE_VERSION', 'builtin')
  [source, picture] = argv(){:};
  warning('off', 'Octave:gnuplot-graphics');
  graphics_toolkit('gnuplot');  % draws without a screen
  form = {'-dpngcairo', '-S900,600'};
else
  form = {'-dpng'};
end
dive = load(source, 'depth', 'sea_water_temperature');

figure('visible', 'off');
subplot('position', [0.15 0.6 0.78 0.35]);
plot(dive.depth.time(:), dive.depth.value(:));
set(gca, 'ydir', 'reverse');
datetick('x', 'HH:MM');
ylabel(['depth (' char(dive.depth.units) ')']);

subplot('position', [0.15 0.16 0.78 0.35]);
plot(dive.sea_water_temperature.time(:), dive.sea_water_temperature.value(:));
datetick('x', 'HH:MM');
ylabel(['temp. (' char(dive.sea_water_temperature.units) ')']);
xlabel(datestr(dive.depth.time(1), 'yyyy-mm-dd'));
print(picture, form{:});
