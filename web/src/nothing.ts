// Stands for packages that are not needed here.
export default undefined;
