// The pictures of the gallery, each of one operation.
#pragma once

#include "TnGraphics/TnGraphics.h"

// Fills and patterns
TnImage ShowColorFill();
TnImage ShowAlphaFill();
TnImage ShowAlphaFillMatte();
TnImage ShowXFill();
TnImage ShowCrossHatchFill();
TnImage ShowBlendInColor();
TnImage ShowBlendInColorAndFillAlpha();
TnImage ShowSetOpacity();

// Erasing
TnImage ShowEraseOutside();
TnImage ShowPrepareMargin();

// Questions
TnImage ShowTestForAlpha();
TnImage ShowTestForHit();
TnImage ShowCalculateContentArea();
TnImage ShowGetRepresentativeBrightness();
TnImage ShowInspectImage();
TnImage ShowTnIsEqual();

// Alphas
TnImage ShowBuildAlpha();
TnImage ShowSetAlphaRect();
TnImage ShowInvertAlpha();
TnImage ShowProcessAlphaChannel();
TnImage ShowProcessAlphaChannelImage();
TnImage ShowDownSample();

// Compositing
TnImage ShowBlendImage();
TnImage ShowBlendImageInClip();
TnImage ShowBlendImageBetweenPixels();
TnImage ShowPreBlendImageAndAlpha();
TnImage ShowPreBlendImageAndAlphaInClip();
TnImage ShowPreBlendImageAndAlphaBetweenPixels();
TnImage ShowIntersectAlpha();
TnImage ShowIntersectAlphaInClip();
TnImage ShowIntersectAlphaBetweenPixels();
TnImage ShowIntersectAlphaMattes();
TnImage ShowIntersectAlphaMatte();
TnImage ShowIntersectAlphaNoColor();
TnImage ShowIntersectAlphaNoColorInClip();
TnImage ShowIntersectAlphaNoColorBetweenPixels();
TnImage ShowSubtractAlpha();
TnImage ShowSubtractAlphaInClip();
TnImage ShowSubtractAlphaBetweenPixels();
TnImage ShowXORAlpha();
TnImage ShowXORAlphaInClip();
TnImage ShowXORAlphaBetweenPixels();

// Copies
TnImage ShowTnCopy();
TnImage ShowTnCopyMatte();
TnImage ShowTnCopyInClip();
TnImage ShowTnCopyTransformed();
TnImage ShowTnCopyColor();
TnImage ShowTnCopyAlpha();
TnImage ShowCopyLuminenceToAlpha();
TnImage ShowCopyAlphaToLuminence();
TnImage ShowTnCopyMapColor();

// Textures
TnImage ShowCopyTexture();
TnImage ShowCopyTextureZeroAlpha();
TnImage ShowBlendTexture();

// Transforms
TnImage ShowTransform();
TnImage ShowTransformEnlarged();
TnImage ShowTransformReduced();
TnImage ShowTransformMatte();

// Matrices
TnImage ShowTranslate();
TnImage ShowFlip();
TnImage ShowRotate();
TnImage ShowScale();
TnImage ShowSkew();
TnImage ShowPerspective();
TnImage ShowPerspectiveInverse();
TnImage ShowTransformBox();

// Colours
TnImage ShowRGBTruncToWebColor();
TnImage ShowRGBTruncToVideoSafe();
TnImage ShowDarkenColor();
TnImage ShowHSVToRGB();
TnImage ShowRGBtoYUV();
TnImage ShowCMYKtoRGB();
TnImage ShowRGBtoCMY();
TnImage ShowColorTransform();
TnImage ShowGetColorMatrixForBlend();

// Surfaces and sampling
TnImage ShowContent();
TnImage ShowGetBetweenPixels();
TnImage ShowGetRect();
TnImage ShowGetWeighted();
TnImage ShowGetMatteBetweenPixels();
TnImage ShowStDisregardAlphaInGet();
TnImage ShowStCoerceToTopFieldOnly();
TnImage ShowCalcIterBnds();

// Paths
TnImage ShowMoveTo();
TnImage ShowCurveTo();
TnImage ShowClosePath();
TnImage ShowDrawRect();
TnImage ShowNewPath();
TnImage ShowFill();
TnImage ShowEvenOddFill();
TnImage ShowClip();
TnImage ShowEvenOddClip();

// Lines
TnImage ShowStroke();
TnImage ShowLineWidth();
TnImage ShowLineCap();
TnImage ShowLineJoin();

// The state of a port
TnImage ShowBeginDrawing();
TnImage ShowTnRasterPort();
TnImage ShowSaveState();
TnImage ShowTranslatePort();
TnImage ShowScalePort();
TnImage ShowSetMatrix();
TnImage ShowGray();
TnImage ShowRGBColor();
